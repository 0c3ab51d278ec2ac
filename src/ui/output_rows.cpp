#include "ui/output_rows.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <map>
#include <set>
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

}  // namespace

void OutputRows::clear() {
  beginResetModel();
  rows_.clear();
  shown_ = 0;
  endResetModel();
}

void OutputRows::add(const run::PointRecord& point) {
  rows_.push_back({.pointNumber = point.pointNumber,
                   .description = point.description,
                   .result = point.OutInfo,
                   .packedAngles = point.packedAngles,
                   .northing = point.InNorthLat,
                   .easting = point.InEastLon,
                   .targetNorthing = point.OutNorthLat,
                   .targetEasting = point.OutEastLon,
                   .elevation = point.Elevation});
}

void OutputRows::showAdded() {
  if (shown_ == rows_.size()) return;
  beginInsertRows({}, static_cast<int>(shown_), static_cast<int>(rows_.size()) - 1);
  shown_ = rows_.size();
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
  const Row& row = rows_[static_cast<std::size_t>(index.row())];
  run::PointRecord point;
  point.packedAngles = row.packedAngles;
  point.InNorthLat = row.northing;
  point.InEastLon = row.easting;
  point.OutNorthLat = row.targetNorthing;
  point.OutEastLon = row.targetEasting;
  point.Elevation = row.elevation;
  report::PointTexts texts;
  report::makePointTexts(point, settings_, texts);
  const std::array<std::string_view, kColumns> columns = {
      row.pointNumber,      row.description,     texts.northing,  texts.easting,
      texts.targetNorthing, texts.targetEasting, texts.elevation, row.result};
  return toQString(columns[static_cast<std::size_t>(index.column())]);
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

QString tableText(const QItemSelectionModel& selection) {
  std::set<int> columns;
  std::map<int, std::map<int, QString>> rows;
  const QModelIndexList cells = selection.selectedIndexes();
  for (const QModelIndex& cell : cells) {
    columns.insert(cell.column());
    QString& text = rows[cell.row()][cell.column()] = cell.data().toString();
    // A description may hold what ends a cell or a line.
    for (const char end : {'\t', '\n', '\r'}) text.replace(QLatin1Char(end), QLatin1Char(' '));
  }
  QStringList headings;
  for (const int column : columns)
    headings += selection.model()->headerData(column, Qt::Horizontal).toString().simplified();
  QString text = headings.join(QLatin1Char('\t')) + QLatin1Char('\n');
  for (const auto& [row, texts] : rows) {
    QStringList line;
    for (const int column : columns) line += texts.contains(column) ? texts.at(column) : QString();
    text += line.join(QLatin1Char('\t')) + QLatin1Char('\n');
  }
  return text;
}

}  // namespace tovak::ui
