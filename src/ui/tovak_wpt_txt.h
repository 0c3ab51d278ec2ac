/// The dialog of the field that names Trimble waypoints.
#pragma once

#include <QDialog>
#include <memory>

#include "run/run_settings.h"

namespace Ui {
class frmTovakWptTxt;
}

namespace tovak::ui {

/// Accepted: the settings hold the field's code; rejected: they are as before.
class frmTovakWptTxt final : public QDialog {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(frmTovakWptTxt)

 public:
  explicit frmTovakWptTxt(run::RunSettings& settings, QWidget* parent = nullptr);
  ~frmTovakWptTxt() override;

 private:
  void store();

  std::unique_ptr<Ui::frmTovakWptTxt> ui_;
  run::RunSettings& settings_;
};

}  // namespace tovak::ui
