/// Texts that are shortened where there is no room for them; their tool tips have the whole.
#pragma once

#include <QLabel>
#include <QLineEdit>

namespace tovak::ui {

/// Leaves out the middle: of a system's name, the datum at its end stays readable.
class ElidedLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// A line to be read and copied, with nothing around it. Leaves out the end until it gets the focus.
class ElidedLine : public QLineEdit {
 public:
  explicit ElidedLine(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tovak::ui
