/// Messages and questions in modal boxes.
#pragma once

#include <QWidget>

#include "run/message.h"

namespace tovak::ui {

/// Shows a message until it is acknowledged, then moves the focus to the control it names. True when the person wants
/// no more messages about single points.
bool showMessage(QWidget* parent, const run::Message& message);

/// Asks a question; true for yes.
bool askQuestion(QWidget* parent, const run::Message& question);

/// Asks a question that may be left unanswered.
run::Answer askOrCancel(QWidget* parent, const run::Message& question);

}  // namespace tovak::ui
