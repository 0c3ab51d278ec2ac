#include "ui/tovak_def_pt_no.h"

#include <QLineEdit>
#include <optional>
#include <string>

#include "text/number.h"
#include "ui/help_key.h"
#include "ui/message_box.h"
#include "ui/qt_text.h"
#include "ui_tovak_def_pt_no.h"

namespace tovak::ui {
namespace {

void setNumber(QLineEdit& box, std::int32_t number) {
  std::string text;
  text::appendWhole(text, number);
  box.setText(toQString(text));
}

std::optional<std::int32_t> numberIn(const QLineEdit& box) {
  return text::toInt32(text::leadingNumber(box.text().toStdString()));
}

run::Message outOfRange(const QLineEdit& box) {
  return {.text = "Point numbers and their steps lie between -2147483648 and 2147483647.",
          .title = "Data entry error",
          .icon = run::Icon::Exclamation,
          .focus = box.objectName().toStdString()};
}

}  // namespace

frmTovakDefPtNo::frmTovakDefPtNo(run::RunSettings& settings, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmTovakDefPtNo>()), settings_(settings) {
  ui_->setupUi(this);
  helpOnF1(*this, "numbering");
  setNumber(*ui_->defPN, settings.NextPointNumber);
  setNumber(*ui_->defPInc, settings.PointNumberIncrement);
  ui_->defPN->selectAll();
  connect(ui_->cmdContinue, &QPushButton::clicked, this, &frmTovakDefPtNo::store);
  connect(ui_->cmdReturn, &QPushButton::clicked, this, &QDialog::reject);
}

frmTovakDefPtNo::~frmTovakDefPtNo() = default;

void frmTovakDefPtNo::store() {
  const std::optional<std::int32_t> first = numberIn(*ui_->defPN);
  if (!first) {
    showMessage(this, outOfRange(*ui_->defPN));
    return;
  }
  const std::optional<std::int32_t> step = numberIn(*ui_->defPInc);
  if (!step) {
    showMessage(this, outOfRange(*ui_->defPInc));
    return;
  }
  settings_.NextPointNumber = *first;
  settings_.PointNumberIncrement = *step;
  accept();
}

}  // namespace tovak::ui
