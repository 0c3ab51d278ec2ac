#include "ui/tovak_maptech.h"

#include <QColor>
#include <QPixmap>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <algorithm>
#include <optional>
#include <string>

#include "text/number.h"
#include "ui/help_key.h"
#include "ui/qt_text.h"
#include "ui/symbology.h"
#include "ui_tovak_maptech.h"

namespace tovak::ui {
namespace {

constexpr int kSwatchSize = 12;
constexpr int kHexadecimal = 16;

std::optional<uint> colorValue(const QString& number) {
  bool isNumber = false;
  const uint value = number.toUInt(&isNumber, kHexadecimal);
  return isNumber ? std::optional(value) : std::nullopt;
}

/// A swatch of the color, whose number holds blue, green and red from its highest byte.
QPixmap swatch(std::string_view number) {
  const uint color = colorValue(toQString(number)).value_or(0);
  QPixmap patch(kSwatchSize, kSwatchSize);
  patch.fill(QColor(static_cast<int>(color & 0xffU), static_cast<int>(color >> 8U & 0xffU),
                    static_cast<int>(color >> 16U & 0xffU)));
  return patch;
}

void allow(QLineEdit& box, const char* pattern) {
  box.setValidator(new QRegularExpressionValidator(QRegularExpression(QString::fromLatin1(pattern)), &box));
}

}  // namespace

frmTovakMaptech::frmTovakMaptech(run::RunSettings& settings, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmTovakMaptech>()), settings_(settings) {
  ui_->setupUi(this);
  helpOnF1(*this, "t-maptech");
  for (const MaptechColor& color : kMaptechColors) ui_->cmbColor->addItem(swatch(color.number), toQString(color.name));
  for (const std::string_view symbol : kMaptechSymbols) ui_->cmbSymbol->addItem(toQString(symbol));
  allow(*ui_->txtColor, "[0-9A-Fa-f]{1,6}");
  allow(*ui_->txtSymbol, "[0-9]{1,9}");
  // A typed number selects its list entry, but only a choice made in the list writes a number.
  connect(ui_->txtColor, &QLineEdit::textChanged, this, &frmTovakMaptech::showColor);
  connect(ui_->txtSymbol, &QLineEdit::textChanged, this, &frmTovakMaptech::showSymbol);
  connect(ui_->cmbColor, &QComboBox::activated, this, [this](int index) {
    ui_->txtColor->setText(toQString(kMaptechColors[static_cast<std::size_t>(index)].number));
  });
  connect(ui_->cmbSymbol, &QComboBox::activated, this,
          [this](int index) { ui_->txtSymbol->setText(QString::number(index)); });
  ui_->txtColor->setText(toQString(settings.options.maptech.color));
  ui_->txtSymbol->setText(QString::number(settings.options.maptech.symbol));
  connect(ui_->cmdContinue, &QPushButton::clicked, this, &frmTovakMaptech::store);
  connect(ui_->cmdReturn, &QPushButton::clicked, this, &QDialog::reject);
}

frmTovakMaptech::~frmTovakMaptech() = default;

void frmTovakMaptech::showColor(const QString& number) {
  const std::optional<uint> typed = colorValue(number);
  const auto sameColor = [&](const MaptechColor& color) { return colorValue(toQString(color.number)) == typed; };
  const auto found = std::find_if(kMaptechColors.begin(), kMaptechColors.end(), sameColor);
  ui_->cmbColor->setCurrentIndex(found == kMaptechColors.end() ? -1 : static_cast<int>(found - kMaptechColors.begin()));
  checkNumbers();
}

void frmTovakMaptech::showSymbol(const QString& number) {
  bool whole = false;
  const int symbol = number.toInt(&whole);
  ui_->cmbSymbol->setCurrentIndex(whole && symbol < static_cast<int>(kMaptechSymbols.size()) ? symbol : -1);
  checkNumbers();
}

void frmTovakMaptech::checkNumbers() {
  ui_->cmdContinue->setEnabled(ui_->txtColor->hasAcceptableInput() && ui_->txtSymbol->hasAcceptableInput());
}

void frmTovakMaptech::store() {
  settings_.options.maptech.color = ui_->txtColor->text().toStdString();
  settings_.options.maptech.symbol = ui_->txtSymbol->text().toInt();
  accept();
}

}  // namespace tovak::ui
