#include "ui/ask_for_file.h"

#include <QFileDialog>

namespace tovak::ui {

/// Qt writes the filter's pattern only in brackets, and takes "*" to match any name.
QString askForFile(QWidget* parent, const QString& title, const QString& folder, bool toSave,
                   const QString& suggested) {
  QFileDialog dialog(parent, title, folder, "All Files (*)");
  dialog.setAcceptMode(toSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(toSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  if (!suggested.isEmpty()) dialog.selectFile(suggested);
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().front() : QString();
}

}  // namespace tovak::ui
