#include "ui/tovak_wpt_txt.h"

#include "ui/help_key.h"
#include "ui_tovak_wpt_txt.h"

namespace tovak::ui {

frmTovakWptTxt::frmTovakWptTxt(run::RunSettings& settings, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmTovakWptTxt>()), settings_(settings) {
  ui_->setupUi(this);
  helpOnF1(*this, "t-waypoints");
  const std::string& chosen = settings.options.waypoints.name;
  QRadioButton* const option = chosen == "ST" ? ui_->optUseST : chosen == "PD" ? ui_->optUsePD : ui_->optUsePN;
  option->setChecked(true);
  option->setFocus();
  connect(ui_->cmdContinue, &QPushButton::clicked, this, &frmTovakWptTxt::store);
  connect(ui_->cmdReturn, &QPushButton::clicked, this, &QDialog::reject);
}

frmTovakWptTxt::~frmTovakWptTxt() = default;

void frmTovakWptTxt::store() {
  settings_.options.waypoints.name = ui_->optUseST->isChecked() ? "ST" : ui_->optUsePD->isChecked() ? "PD" : "PN";
  accept();
}

}  // namespace tovak::ui
