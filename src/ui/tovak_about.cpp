#include "ui/tovak_about.h"

#include "ui/help_key.h"
#include "ui_tovak_about.h"

namespace tovak::ui {

frmTovakAbout::frmTovakAbout(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::frmTovakAbout>()) {
  ui_->setupUi(this);
  helpOnF1(*this, "first-steps");
  ui_->lblVersion->setText(tr("Version ") + TOVAK_VERSION);
  ui_->lblBuildDate->setText(tr("Build date ") + TOVAK_RELEASE_DATE);
  connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmTovakAbout::~frmTovakAbout() = default;

}  // namespace tovak::ui
