#include "ui/preview_rows.h"

#include <QGuiApplication>
#include <utility>

#include "run/labels.h"
#include "run/projection_code.h"
#include "ui/plan_colours.h"
#include "ui/qt_text.h"

namespace tovak::ui {
namespace {

QString lineText(const run::PreviewRow& row) {
  const QString line = QString::number(row.line);
  return row.file.empty() ? line : QString("%1: %2").arg(toQString(row.file), line);
}

QString cellText(const run::PreviewRow& row, int column) {
  switch (column) {
    case PreviewRows::kLine:
      return lineText(row);
    case PreviewRows::kFate:
      return toQString(run::fateName(row.fate));
    case PreviewRows::kNumber:
      return toQString(row.number);
    case PreviewRows::kDescription:
      return toQString(row.description);
    case PreviewRows::kSourceNorth:
      return toQString(row.northing);
    case PreviewRows::kSourceEast:
      return toQString(row.easting);
    case PreviewRows::kTargetNorth:
      return toQString(row.target.northing);
    case PreviewRows::kTargetEast:
      return toQString(row.target.easting);
    case PreviewRows::kElevation:
      return toQString(row.target.elevation);
    case PreviewRows::kConvergence:
      return toQString(row.convergence);
    case PreviewRows::kScaleFactor:
      return toQString(row.scaleFactor);
    default:
      return toQString(row.reason).replace('\n', ' ');
  }
}

/// The source line as the tool tip of its number, and the reason where its column may be out of sight.
QString tipText(const run::PreviewRow& row, int column) {
  if (column == PreviewRows::kLine && !row.sourceText.empty()) return toQString(row.sourceText);
  if (column == PreviewRows::kFate && !row.reason.empty()) return toQString(row.reason);
  return cellText(row, column);
}

Qt::Alignment alignmentOf(int column) {
  const bool number =
      column == PreviewRows::kLine || (column >= PreviewRows::kSourceNorth && column <= PreviewRows::kScaleFactor);
  return (number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

/// "Source" over "Latitude" or "North (ft)".
QString coordinateHeading(const char* side, std::int16_t code, bool metres, bool north) {
  if (run::isLatLong(code)) return QString("%1\n%2").arg(side, north ? "Latitude" : "Longitude");
  const QString unit = toQString(run::unitLabels(code, metres).coordinateLabel);
  return QString("%1\n%2 %3").arg(side, north ? "North" : "East", unit);
}

QStringList headingsFor(const run::RunSettings& s) {
  const auto of = [](const char* side, std::int16_t code, bool metres) {
    return QStringList{coordinateHeading(side, code, metres, true), coordinateHeading(side, code, metres, false)};
  };
  return QStringList{"Line", "Fate", "Number", "Description"} + of("Source", s.SourceProjectionCode, s.source.metres) +
         of("Target", s.TargetProjectionCode, s.target.metres) +
         QStringList{QString("Elevation\n%1").arg(s.target.metres ? "(m)" : "(ft)"), "Convergence\n(d-m-s)",
                     "Scale\nfactor", "Reason"};
}

}  // namespace

void PreviewRows::setRows(std::vector<run::PreviewRow> rows, const run::RunSettings& settings) {
  beginResetModel();
  rows_ = std::move(rows);
  headings_ = headingsFor(settings);
  endResetModel();
}

std::vector<PlanPoint> PreviewRows::planPoints() const {
  std::vector<PlanPoint> points;
  for (int index = 0; index < rowCount(); ++index) {
    const run::PreviewRow& row = at(index);
    if (!row.place) continue;
    points.push_back({.place = *row.place, .label = toQString(row.number), .state = stateOf(row.fate), .row = index});
  }
  return points;
}

int PreviewRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int PreviewRows::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant PreviewRows::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const run::PreviewRow& row = at(index.row());
  const int column = index.column();
  if (role == Qt::DisplayRole) return cellText(row, column);
  if (role == Qt::TextAlignmentRole) return QVariant(alignmentOf(column));
  const bool told = column == kFate || column == kReason;
  if (role == Qt::ForegroundRole && told && row.fate != run::Fate::Converted) {
    return planColours(QGuiApplication::palette()).of(stateOf(row.fate));
  }
  if (role == Qt::ToolTipRole) return plainTip(tipText(row, column));
  return {};
}

QVariant PreviewRows::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return QVariant(alignmentOf(section));
  return role == Qt::DisplayRole ? QVariant(headings_.value(section)) : QVariant();
}

}  // namespace tovak::ui
