#include "ui/output_rows.h"

#include <algorithm>
#include <utility>

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
  endResetModel();
}

void OutputRows::add(Row row) {
  const int last = rowCount();
  beginInsertRows({}, last, last);
  rows_.push_back(std::move(row));
  endInsertRows();
}

int OutputRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int OutputRows::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant OutputRows::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == Qt::TextAlignmentRole) return QVariant(columnAt(index.column()).alignment | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  return rows_[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())];
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
