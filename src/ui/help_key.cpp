#include "ui/help_key.h"

#include <QShortcut>

#include "run/module_loader.h"
#include "run/run_messages.h"
#include "ui/help_window.h"
#include "ui/message_box.h"
#include "ui/qt_text.h"

namespace tovak::ui {

QString helpFile() {
  return toQString(run::programFile("Tovak.hlp"));
}

void helpOnF1(QDialog& dialog, const char* anchor) {
  const auto* const key = new QShortcut(QKeySequence::HelpContents, &dialog);
  QObject::connect(key, &QShortcut::activated, &dialog,
                   [&dialog, anchor, help = static_cast<HelpWindow*>(nullptr)]() mutable {
                     if (help == nullptr) help = new HelpWindow(helpFile(), &dialog);
                     QString problem;
                     if (!help->open(&problem))
                       return static_cast<void>(showMessage(&dialog, run::systemMessage(problem.toStdString())));
                     help->showTopic(anchor);
                   });
}

}  // namespace tovak::ui
