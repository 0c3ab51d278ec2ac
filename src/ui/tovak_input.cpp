#include "ui/tovak_input.h"

#include <QLineEdit>

#include "report/point_texts.h"
#include "run/labels.h"
#include "run/projection_code.h"
#include "text/number.h"
#include "text/strings.h"
#include "ui/help_key.h"
#include "ui/message_box.h"
#include "ui/qt_text.h"
#include "ui_tovak_input.h"

namespace tovak::ui {
namespace {

std::string trimmed(const QLineEdit& box) {
  return std::string(text::trimBlanks(box.text().toStdString()));
}

std::string withoutBlanks(const QLineEdit& box) {
  return box.text().remove(QLatin1Char(' ')).toStdString();
}

double heightIn(const QLineEdit& box) {
  return text::leadingNumber(box.text().toStdString());
}

}  // namespace

EntryLabels entryLabels(const run::RunSettings& settings, const QString& systemName) {
  const std::int16_t code = settings.SourceProjectionCode;
  return {.latLong = run::isLatLong(code),
          .hint = toQString(run::entryHint(settings)),
          .heightUnit = toQString(run::unitLabels(code, settings.source.metres).coordinateLabel),
          .source = systemName + " : " + toQString(run::datumLabel(settings, code))};
}

QString entryResult(const run::PointRecord& point, const run::RunSettings& settings, const QString& targetName) {
  report::PointTexts texts;
  report::makePointTexts(point, settings, texts);
  const bool latLong = run::isLatLong(settings.TargetProjectionCode);
  const std::string_view unit = run::unitLabels(settings.TargetProjectionCode, settings.target.metres).coordinateLabel;
  QString result = QString("%1 %2").arg(toQString(point.pointNumber), toQString(point.description)).simplified();
  if (!result.isEmpty()) result += ": ";
  result += targetName + '\n';
  result +=
      QString(latLong ? "Latitude %1   Longitude %2   Elevation %3 %4" : "North/Y %1   East/X %2   Elevation %3 %4")
          .arg(toQString(texts.targetNorthing), toQString(texts.targetEasting), toQString(texts.elevation),
               toQString(unit));
  std::string_view info = point.OutInfo;
  const std::string_view convergence = text::takeField(info, ' ');
  const std::string_view scaleFactor = text::takeField(info, ' ');
  if (latLong || scaleFactor.empty()) return result;
  return result + QString("\nConvergence %1   Scale factor %2").arg(toQString(convergence), toQString(scaleFactor));
}

frmTovakInput::frmTovakInput(const EntryLabels& labels, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmTovakInput>()) {
  ui_->setupUi(this);
  helpOnF1(*this, "s-keyboard");
  latLong_ = labels.latLong;
  first_ = ui_->txtPointNumber;
  // There is room for a result from the beginning.
  constexpr int kResultLines = 3;
  ui_->lblResult->setMinimumHeight(kResultLines * ui_->lblResult->fontMetrics().lineSpacing());
  setLabels(labels);
  connect(ui_->txtLatNorthY, &QLineEdit::textChanged, this, &frmTovakInput::splitPair);
  connect(ui_->cmdConvert, &QPushButton::clicked, this, &frmTovakInput::convert);
  connect(ui_->cmdReturn, &QPushButton::clicked, this, &QDialog::reject);
}

frmTovakInput::~frmTovakInput() = default;

void frmTovakInput::setLabels(const EntryLabels& labels) {
  ui_->lblLatNorthY->setText(labels.latLong ? tr("&Latitude") : tr("&North/Y"));
  ui_->lblLongEastX->setText(labels.latLong ? tr("L&ongitude") : tr("E&ast/X"));
  ui_->lblLatNYUnits->setText(labels.hint);
  for (QLabel* const unit : {ui_->lblZCUnits, ui_->lblHGUnits, ui_->lblHEUnits}) unit->setText(labels.heightUnit);
  ui_->lblInProj->setText(labels.source);
}

run::TypedTexts frmTovakInput::texts() const {
  // Blanks separate degrees, minutes and seconds; in a northing or easting they mean nothing.
  const auto coordinate = latLong_ ? trimmed : withoutBlanks;
  return {.number = trimmed(*ui_->txtPointNumber),
          .name = trimmed(*ui_->txtPointName),
          .northing = coordinate(*ui_->txtLatNorthY),
          .easting = coordinate(*ui_->txtLongEastX),
          .elevation = heightIn(*ui_->txtZC),
          .geoid = heightIn(*ui_->txtHG),
          .ellipsoid = heightIn(*ui_->txtHE)};
}

void frmTovakInput::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  first_->setFocus();
  first_->selectAll();
}

void frmTovakInput::showResult(const QString& result) {
  ui_->lblResult->setText(result);
  QLineEdit& number = *ui_->txtPointNumber;
  number.setText(toQString(run::nextTypedNumber(trimmed(number))));
  for (QLineEdit* const height : {ui_->txtZC, ui_->txtHG, ui_->txtHE}) height->clear();
}

void frmTovakInput::beginAt(std::string_view box) {
  if (auto* const found = findChild<QLineEdit*>(toQString(box))) first_ = found;
}

/// A pasted pair fills both boxes.
void frmTovakInput::splitPair(const QString& text) {
  const qsizetype comma = text.indexOf(QLatin1Char(','));
  if (comma < 0) return;
  ui_->txtLongEastX->setText(text.mid(comma + 1));
  ui_->txtLatNorthY->setText(text.left(comma));
}

void frmTovakInput::convert() {
  if (const std::optional<run::Message> missing = run::missingCoordinate(texts())) {
    showMessage(this, *missing);
    return;
  }
  ui_->lblResult->clear();
  first_ = ui_->txtLatNorthY;
  accept();
}

}  // namespace tovak::ui
