/// Finding the controls of a window by their names, and using them as a person does.
#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include "support/print_qt.h"

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
/// Takes an entry of a list, as if by the mouse.
inline void choose(const QWidget& window, const char* list, int index) {
  auto& entries = control<QComboBox>(window, list);
  entries.setCurrentIndex(index);
  emit entries.activated(index);
}
/// Types over what a box shows.
inline void type(QLineEdit& line, const char* text) {
  line.selectAll();
  QTest::keyClicks(&line, text);
}
/// A caption as the person sees it, without the mark of its key.
inline std::string caption(const QWidget& window, const char* name) {
  QString text = control<QWidget>(window, name).property("text").toString();
  return text.remove(QLatin1Char('&')).toStdString();
}

}  // namespace tovak::tests
