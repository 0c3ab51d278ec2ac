/// Answers the modal dialogs that a window opens, each as it appears.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

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
  bool finished() const { return steps_.empty(); }

  std::vector<Box> boxes;

 private:
  void answer() {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    if (auto* const box = qobject_cast<QMessageBox*>(dialog)) {
      boxes.push_back({box->windowTitle().toStdString(), box->text().toStdString(),
                       box->informativeText().toStdString(), box->checkBox() != nullptr});
    }
    const QString name =
        dialog->objectName().isEmpty() ? QString(dialog->metaObject()->className()) : dialog->objectName();
    if (!steps_.empty() && name == steps_.front().first) {
      const auto action = std::move(steps_.front().second);
      steps_.pop_front();
      action(*dialog);
    } else if (auto* const box = qobject_cast<QMessageBox*>(dialog)) {
      box->done(QMessageBox::Ok);
    } else {
      ADD_FAILURE() << "no dialog " << name.toStdString() << " was expected";
      dialog->reject();
    }
  }

  QTimer timer_;
  std::deque<std::pair<QString, std::function<void(QDialog&)>>> steps_;
};

}  // namespace tovak::tests
