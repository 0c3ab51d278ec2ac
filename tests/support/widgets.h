/// Finding the controls of a window by their names, and answering the boxes that it opens.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <functional>

#include <gtest/gtest.h>

namespace tovak::tests {

/// The control of that name; the test program ends when the window has none.
template <typename Control>
Control& control(const QWidget& window, const char* name) {
  auto* const found = window.findChild<Control*>(QString::fromLatin1(name));
  if (found == nullptr) qFatal("no control %s", name);
  return *found;
}

inline QLineEdit& box(const QWidget& window, const char* name) {
  return control<QLineEdit>(window, name);
}
inline void press(const QWidget& window, const char* button) {
  control<QAbstractButton>(window, button).click();
}
/// A caption as the person sees it, without the mark of its key.
inline std::string caption(const QWidget& window, const char* name) {
  QString text = control<QWidget>(window, name).property("text").toString();
  return text.remove(QLatin1Char('&')).toStdString();
}

struct ShownBox {
  std::string title;
  std::string text;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
};

/// What the message box that `action` opens says; it is acknowledged.
inline ShownBox boxOpenedBy(const std::function<void()>& action) {
  ShownBox shown;
  QTimer::singleShot(0, [&shown] {
    auto* const message = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (message == nullptr) return;
    shown = {message->windowTitle().toStdString(), message->text().toStdString(), message->icon()};
    message->accept();
  });
  action();
  QApplication::processEvents();
  return shown;
}

}  // namespace tovak::tests
