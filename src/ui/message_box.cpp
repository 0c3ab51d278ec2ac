#include "ui/message_box.h"

#include <QApplication>
#include <QCheckBox>
#include <QCursor>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <array>

#include "ui/qt_text.h"

namespace tovak::ui {
namespace {

/// In the order of `run::Icon`.
constexpr std::array<QMessageBox::Icon, 4> kIcons = {QMessageBox::NoIcon, QMessageBox::Warning,
                                                     QMessageBox::Information, QMessageBox::Question};

/// Shows the ordinary pointer over a box that a run has opened.
class ArrowCursor {
 public:
  ArrowCursor() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
  ArrowCursor(const ArrowCursor&) = delete;
  ArrowCursor& operator=(const ArrowCursor&) = delete;
  ~ArrowCursor() { QApplication::restoreOverrideCursor(); }
};

/// The box breaks lines at a width of its own, even where the screen has room for the whole line.
void giveLinesTheirWidth(QLabel& label) {
  // Qt limits the width of a box: to the whole of a small screen, to part of a larger one.
  constexpr int kSmallScreen = 1024, kLeftFree = 480, kWidestBox = 1000, kIconAndMargins = 130;
  const int screen = label.screen()->availableSize().width();
  const int box = screen <= kSmallScreen ? screen : std::min(screen - kLeftFree, kWidestBox);
  const int widest = box - kIconAndMargins;
  label.setMinimumWidth(std::min(label.fontMetrics().size(0, label.text()).width() + 2 * label.margin(), widest));
}

void fill(QMessageBox& box, const run::Message& message) {
  box.setIcon(kIcons[static_cast<std::size_t>(message.icon)]);
  box.setWindowTitle(toQString(message.title));
  box.setTextFormat(Qt::PlainText);
  box.setText(toQString(message.text));
  box.setInformativeText(toQString(message.detail));
  for (QLabel* const label : box.findChildren<QLabel*>()) {
    // The format set above does not reach the label of the smaller text.
    label->setTextFormat(Qt::PlainText);
    giveLinesTheirWidth(*label);
  }
}

int execQuestion(QWidget* parent, const run::Message& question, QMessageBox::StandardButtons buttons,
                 QMessageBox::StandardButton preset) {
  const ArrowCursor arrow;
  QMessageBox box(parent);
  fill(box, question);
  box.setStandardButtons(buttons);
  box.setDefaultButton(preset);
  return box.exec();
}

}  // namespace

Acknowledgement showMessage(QWidget* parent, const run::Message& message) {
  const ArrowCursor arrow;
  QMessageBox box(parent);
  fill(box, message);
  box.setStandardButtons(QMessageBox::Ok);
  box.setDefaultButton(QMessageBox::Ok);
  box.setEscapeButton(QMessageBox::Ok);
  const QPushButton* const stop =
      message.mayStop ? box.addButton(QMessageBox::tr("Stop"), QMessageBox::DestructiveRole) : nullptr;
  auto* const enough = new QCheckBox(QMessageBox::tr("Do not show further conversion errors in this run"), &box);
  enough->setToolTip(QMessageBox::tr("Points that cannot be converted are then only counted"));
  enough->setVisible(message.ofOnePoint);
  if (message.ofOnePoint) box.setCheckBox(enough);
  box.exec();
  const QString focus = toQString(message.focus);
  QWidget* const control = parent == nullptr || focus.isEmpty() ? nullptr : parent->findChild<QWidget*>(focus);
  if (control != nullptr) control->setFocus();
  if (stop != nullptr && box.clickedButton() == stop) return Acknowledgement::Stop;
  return enough->isChecked() ? Acknowledgement::NoMoreOfThem : Acknowledgement::Plain;
}

bool askQuestion(QWidget* parent, const run::Message& question) {
  return execQuestion(parent, question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

run::Answer askOrCancel(QWidget* parent, const run::Message& question) {
  const int button =
      execQuestion(parent, question, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
  if (button == QMessageBox::Yes) return run::Answer::Yes;
  return button == QMessageBox::No ? run::Answer::No : run::Answer::Cancel;
}

}  // namespace tovak::ui
