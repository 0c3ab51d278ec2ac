/// Messages and questions in modal boxes.
#pragma once

#include <QWidget>

#include "run/message.h"

namespace tovak::ui {

enum class Acknowledgement {
  Plain,
  NoMoreOfThem,  ///< no further messages about single points
  Stop,          ///< the run
};

/// Shows a message until it is acknowledged, then moves the focus to the control it names.
Acknowledgement showMessage(QWidget* parent, const run::Message& message);

/// Asks a question; true for yes.
bool askQuestion(QWidget* parent, const run::Message& question);

/// Asks a question that may be left unanswered.
run::Answer askOrCancel(QWidget* parent, const run::Message& question);

}  // namespace tovak::ui
