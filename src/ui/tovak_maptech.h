/// The dialog of the color and symbol of Maptech labels.
#pragma once

#include <QDialog>
#include <memory>

#include "run/run_settings.h"

namespace Ui {
class frmTovakMaptech;
}

namespace tovak::ui {

/// Accepted: the settings hold the numbers of color and symbol; rejected: they are as before.
class frmTovakMaptech final : public QDialog {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(frmTovakMaptech)

 public:
  explicit frmTovakMaptech(run::RunSettings& settings, QWidget* parent = nullptr);
  ~frmTovakMaptech() override;

 private:
  void showColor(const QString& number);
  void showSymbol(const QString& number);
  void checkNumbers();
  void store();

  std::unique_ptr<Ui::frmTovakMaptech> ui_;
  run::RunSettings& settings_;
};

}  // namespace tovak::ui
