#include "ui/output_rows.h"

#include <algorithm>
#include <array>
#include <utility>

#include "report/point_texts.h"
#include "ui/qt_text.h"

namespace tovak::ui {
namespace {

struct Column {
  const char* heading;
  Qt::Alignment alignment;
};

const std::array<Column, OutputRows::kColumns> kColumnTable = {{
    {"Point\nNumber", Qt::AlignLeft},
    {"Description", Qt::AlignLeft},
    {"Source\nNorthing/Latitude", Qt::AlignRight},
    {"Source\nEasting/Longitude", Qt::AlignRight},
    {"Target\nNorthing/Latitude", Qt::AlignRight},
    {"Target\nEasting/Longitude", Qt::AlignRight},
    {"Elevation", Qt::AlignRight},
    {"Result", Qt::AlignLeft},
}};

const Column& columnAt(int index) {
  return kColumnTable[static_cast<std::size_t>(index)];
}

/// The texts of a row by their columns.
std::string_view textOf(const run::PointRecord& point, const report::PointTexts& texts, int column) {
  const std::array<std::string_view, OutputRows::kColumns> row = {
      point.pointNumber,    point.description,   texts.northing,  texts.easting,
      texts.targetNorthing, texts.targetEasting, texts.elevation, point.OutInfo};
  return row[static_cast<std::size_t>(column)];
}

}  // namespace

void OutputRows::clear() {
  beginResetModel();
  added_ = shown_ = 0;
  endResetModel();
}

void OutputRows::add(const run::PointRecord& point) {
  if (added_ == rows_.size()) rows_.emplace_back();
  run::PointRecord& row = rows_[added_++];
  row.pointNumber = point.pointNumber;
  row.description = point.description;
  row.packedAngles = point.packedAngles;
  row.InNorthLat = point.InNorthLat;
  row.InEastLon = point.InEastLon;
  row.OutNorthLat = point.OutNorthLat;
  row.OutEastLon = point.OutEastLon;
  row.Elevation = point.Elevation;
  row.OutInfo = point.OutInfo;
}

void OutputRows::showAdded() {
  if (shown_ == added_) return;
  beginInsertRows({}, static_cast<int>(shown_), static_cast<int>(added_) - 1);
  shown_ = added_;
  endInsertRows();
}

int OutputRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_);
}

int OutputRows::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant OutputRows::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == Qt::TextAlignmentRole) return QVariant(columnAt(index.column()).alignment | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  const run::PointRecord& point = rows_[static_cast<std::size_t>(index.row())];
  report::PointTexts texts;
  report::makePointTexts(point, settings_, texts);
  return toQString(textOf(point, texts, index.column()));
}

QVariant OutputRows::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return QVariant(columnAt(section).alignment | Qt::AlignVCenter);
  return role == Qt::DisplayRole ? QVariant(QString::fromLatin1(columnAt(section).heading)) : QVariant();
}

QString copyText(const QItemSelectionModel& selection) {
  QModelIndexList cells = selection.selectedIndexes();
  std::sort(cells.begin(), cells.end());
  QString text;
  int row = -1;
  for (const QModelIndex& cell : std::as_const(cells)) {
    if (row != -1) text += QLatin1Char(cell.row() == row ? '\t' : '\r');
    text += cell.data().toString();
    row = cell.row();
  }
  return text.replace(QLatin1Char('\t'), QLatin1Char(','));
}

}  // namespace tovak::ui
