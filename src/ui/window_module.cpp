// The module TovakWindow: the main window behind its one exported function.
#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

#include "app/console_person.h"
#include "app/program.h"
#include "app/window_start.h"
#include "ui/message_box.h"
#include "ui/tovak.h"

namespace {

using tovak::app::WindowStart;

const WindowStart* opening = nullptr;  ///< what is to be shown once there is a display

/// Qt ends the program when the display cannot be used. Pending messages are printed first.
void takeQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (type == QtFatalMsg) {
    tovak::app::printUnopenedWindow(std::cerr, opening->messages, "The display cannot be used.");
    std::_Exit(opening->statusWithoutDisplay);
  }
  std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

void openWindow(const WindowStart& start) {
  int count = 1;
  char name[] = "tovak";
  char* arguments[] = {name, nullptr};
  QApplication::setStyle("Fusion");
  opening = &start;
  qInstallMessageHandler(takeQtMessage);
  // A desktop finds the window's icon by it.
  QGuiApplication::setDesktopFileName("tovak");
  QApplication application(count, arguments);
  qInstallMessageHandler(nullptr);
  if (start.engine == nullptr) {
    for (const tovak::run::Message& message : start.messages) tovak::ui::showMessage(nullptr, message);
    return;
  }
  tovak::ui::frmTovak window(start);
  window.show();
  QTimer::singleShot(0, &window, &tovak::ui::frmTovak::completeStart);
  QApplication::exec();
}

}  // namespace

extern "C" __attribute__((visibility("default"))) bool openTovakWindow(const WindowStart& start, std::string& reason) {
  try {
    openWindow(start);
    return true;
  } catch (const std::exception& failure) {
    reason = failure.what();
    return false;
  }
}
