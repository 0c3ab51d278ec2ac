/// Answers the modal dialogs that a window opens, each as it appears.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/print_qt.h"

namespace tovak::tests {

class DialogScript {
 public:
  struct Box {
    std::string title;
    std::string text;
    std::string detail;
    bool offersToStop = false;
  };

  DialogScript() {
    QObject::connect(&timer_, &QTimer::timeout, [this] { answer(); });
    timer_.start(0);
  }

  /// The name (or, without one, the class) of the dialog expected next, and what to do with it. Message boxes that
  /// nothing was written down for are acknowledged.
  void expect(const char* name, std::function<void(QDialog&)> action) { steps_.emplace_back(name, std::move(action)); }
  /// A message box that is answered by one of its buttons.
  void expectBox(QMessageBox::StandardButton button) {
    expect("QMessageBox", [button](QDialog& box) { static_cast<QMessageBox&>(box).button(button)->click(); });
  }
  /// A file dialog that a name is typed into; without one it is cancelled. Its title goes to `titles`.
  void expectFile(const std::string& name) {
    expect("QFileDialog", [this, name](QDialog& dialog) {
      titles.push_back(dialog.windowTitle().toStdString());
      if (name.empty()) return dialog.reject();
      dialog.findChild<QLineEdit*>()->setText(QString::fromStdString(name));
      dialog.QDialog::done(QDialog::Accepted);
    });
  }
  bool finished() const { return steps_.empty(); }

  std::vector<Box> boxes;
  std::vector<std::string> titles;

 private:
  void answer() {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || answering_) return;
    if (auto* const box = qobject_cast<QMessageBox*>(dialog)) {
      boxes.push_back({box->windowTitle().toStdString(), box->text().toStdString(),
                       box->informativeText().toStdString(), box->checkBox() != nullptr});
      for (const QLabel* const label : box->findChildren<QLabel*>()) EXPECT_EQ(label->textFormat(), Qt::PlainText);
    }
    const QString name =
        dialog->objectName().isEmpty() ? QString(dialog->metaObject()->className()) : dialog->objectName();
    if (!steps_.empty() && name == steps_.front().first) {
      // Not from inside the timer, which would be silent for boxes that the action opens.
      answering_ = true;
      QTimer::singleShot(0, dialog, [this, dialog, action = std::move(steps_.front().second)] {
        answering_ = false;
        action(*dialog);
      });
      steps_.pop_front();
    } else if (auto* const box = qobject_cast<QMessageBox*>(dialog)) {
      box->done(QMessageBox::Ok);
    } else {
      ADD_FAILURE() << "no dialog " << name.toStdString() << " was expected";
      dialog->reject();
    }
  }

  QTimer timer_;
  bool answering_ = false;
  std::deque<std::pair<QString, std::function<void(QDialog&)>>> steps_;
};

}  // namespace tovak::tests
