/// The pointer that says that the program is busy.
#pragma once

#include <QApplication>

namespace tovak::ui {

/// Shown as long as the object lives.
class WaitCursor {
 public:
  WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
  ~WaitCursor() { QApplication::restoreOverrideCursor(); }
};

}  // namespace tovak::ui
