/// F1 in dialogs.
#pragma once

#include <QDialog>
#include <QString>

namespace tovak::ui {

/// The help file that comes with the program.
QString helpFile();

/// F1 opens the help at the section that begins with the anchor. The help belongs to the dialog, which lets no other
/// window answer while it is open.
void helpOnF1(QDialog& dialog, const char* anchor);

}  // namespace tovak::ui
