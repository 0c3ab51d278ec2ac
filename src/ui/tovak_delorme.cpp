#include "ui/tovak_delorme.h"

#include <QCompleter>

#include "ui/help_key.h"
#include "ui/qt_text.h"
#include "ui/symbology.h"
#include "ui_tovak_delorme.h"

namespace tovak::ui {

frmTovakDelorme::frmTovakDelorme(run::RunSettings& settings, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmTovakDelorme>()), settings_(settings) {
  ui_->setupUi(this);
  helpOnF1(*this, "t-delorme");
  QComboBox& box = *ui_->cmbSymbol;
  for (const std::string_view symbol : kDelormeSymbols) box.addItem(toQString(symbol));
  box.setCurrentText(toQString(settings.options.delorme.symbol));
  box.completer()->setCompletionMode(QCompleter::PopupCompletion);
  connect(&box, &QComboBox::editTextChanged, this,
          [this](const QString& text) { ui_->cmdContinue->setEnabled(!text.trimmed().isEmpty()); });
  connect(ui_->cmdContinue, &QPushButton::clicked, this, &frmTovakDelorme::store);
  connect(ui_->cmdReturn, &QPushButton::clicked, this, &QDialog::reject);
}

frmTovakDelorme::~frmTovakDelorme() = default;

void frmTovakDelorme::store() {
  settings_.options.delorme.symbol = ui_->cmbSymbol->currentText().trimmed().toStdString();
  accept();
}

}  // namespace tovak::ui
