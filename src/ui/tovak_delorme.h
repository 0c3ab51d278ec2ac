/// The dialog of the symbol of DeLorme points.
#pragma once

#include <QDialog>
#include <memory>

#include "run/run_settings.h"

namespace Ui {
class frmTovakDelorme;
}

namespace tovak::ui {

/// Accepted: the settings hold the symbol's name, from the list or as typed; rejected: they are as before.
class frmTovakDelorme final : public QDialog {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(frmTovakDelorme)

 public:
  explicit frmTovakDelorme(run::RunSettings& settings, QWidget* parent = nullptr);
  ~frmTovakDelorme() override;

 private:
  void store();

  std::unique_ptr<Ui::frmTovakDelorme> ui_;
  run::RunSettings& settings_;
};

}  // namespace tovak::ui
