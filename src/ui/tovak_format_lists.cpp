// The lists of formats, in which the person can look through the entries before taking one.
#include <QComboBox>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <algorithm>

#include "ui/tovak.h"

namespace tovak::ui {
namespace {

using selection::Side;

/// Whether a key moves to another entry of a closed list.
bool movesThroughList(const QKeyEvent& event) {
  constexpr int kKeys[] = {Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left, Qt::Key_Right,
                           Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
  if (event.modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier)) return false;
  const bool searches = !event.text().isEmpty() && event.text().front().isPrint() && event.key() != Qt::Key_Space;
  return searches || std::ranges::find(kKeys, event.key()) != std::end(kKeys);
}

}  // namespace

void frmTovak::chooseFormat(const SideWidgets& side, int index) {
  side.side == Side::Source ? chooseSourceFormat(index) : chooseTargetFormat(index);
}

/// Taking a format can change the partner format and the forms, and ask questions. So keys and the wheel only show
/// entries; the one shown is taken by Enter or when the person leaves the list.
bool frmTovak::keepFormatList(const SideWidgets& side, QEvent* event) {
  const bool key = event->type() == QEvent::KeyPress;
  if (event->type() == QEvent::Wheel || (key && movesThroughList(*static_cast<QKeyEvent*>(event)))) {
    const QSignalBlocker silent(side.format);
    side.format->event(event);
    return true;
  }
  if (key && (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Return ||
              static_cast<QKeyEvent*>(event)->key() == Qt::Key_Enter)) {
    commitFormat(side);
    return true;
  }
  if (event->type() == QEvent::FocusOut) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    // The format's questions wait until the focus has moved.
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
      QMetaObject::invokeMethod(
          this, [this, &side] { commitFormat(side); }, Qt::QueuedConnection);
  }
  return false;
}

/// Takes the entry that the list shows, unless the side has that format already.
void frmTovak::commitFormat(const SideWidgets& side) {
  const run::RunSettings& settings = selections_.run;
  const int chosen = side.side == Side::Source ? settings.sourceFormat : settings.targetFormat;
  const int shown = side.format->currentIndex();
  if (!running_ && shown >= 0 && shown != chosen) chooseFormat(side, shown);
}

}  // namespace tovak::ui
