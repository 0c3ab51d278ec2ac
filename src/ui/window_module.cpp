// The module TovakWindow: the main window behind the one function that it exports.
#include <QApplication>
#include <QTimer>
#include <exception>
#include <string>

#include "app/window_start.h"
#include "ui/message_box.h"
#include "ui/tovak.h"

namespace {

using tovak::app::WindowStart;

void openWindow(const WindowStart& start) {
  int count = 1;
  char name[] = "tovak";
  char* arguments[] = {name, nullptr};
  QApplication::setStyle("Fusion");
  QApplication application(count, arguments);
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
