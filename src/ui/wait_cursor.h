/// The pointer that shows that the program is busy.
#pragma once

#include <QApplication>

namespace tovak::ui {

/// Shown for the life of the object.
class WaitCursor {
 public:
  WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
  ~WaitCursor() { QApplication::restoreOverrideCursor(); }
};

}  // namespace tovak::ui
