/// The dialog that asks for a file's name.
#pragma once

#include <QString>
#include <QWidget>

namespace tovak::ui {

/// The name of a file to open or to save; empty when none was chosen. When saving, the dialog asks itself whether an
/// older file may be replaced.
QString askForFile(QWidget* parent, const QString& title, const QString& folder, bool toSave,
                   const QString& suggested = {});

}  // namespace tovak::ui
