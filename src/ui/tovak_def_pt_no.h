/// The dialog of the default point numbering.
#pragma once

#include <QDialog>
#include <memory>

#include "run/run_settings.h"

namespace Ui {
class frmTovakDefPtNo;
}

namespace tovak::ui {

/// Accepted: the settings hold the next number and the step; rejected: they are as before.
class frmTovakDefPtNo final : public QDialog {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(frmTovakDefPtNo)

 public:
  explicit frmTovakDefPtNo(run::RunSettings& settings, QWidget* parent = nullptr);
  ~frmTovakDefPtNo() override;

 private:
  void store();

  std::unique_ptr<Ui::frmTovakDefPtNo> ui_;
  run::RunSettings& settings_;
};

}  // namespace tovak::ui
