#include "ui/unconverted_rows.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <array>
#include <set>
#include <utility>

#include "ui/plan_colours.h"
#include "ui/qt_text.h"

namespace tovak::ui {
namespace {

constexpr std::array<const char*, UnconvertedRows::kColumns> kHeadings = {"Line", "Text", "Reason"};

QString cellText(const run::UnconvertedLine& line, int column) {
  if (column == UnconvertedRows::kText) return toQString(line.text);
  if (column == UnconvertedRows::kReason) return toQString(line.reason).replace('\n', ' ');
  const QString number = QString::number(line.line);
  return line.file.empty() ? number : QFileInfo(toQString(line.file)).fileName() + ": " + number;
}

Qt::Alignment alignmentOf(int column) {
  return (column == UnconvertedRows::kLine ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

}  // namespace

void UnconvertedRows::setLines(run::UnconvertedLines lines) {
  beginResetModel();
  lines_ = std::move(lines);
  endResetModel();
}

QString UnconvertedRows::rowText(int row) const {
  const run::UnconvertedLine& line = lines_.lines[static_cast<std::size_t>(row)];
  return cellText(line, kLine) + '\t' + cellText(line, kText).replace('\t', ' ') + '\t' + cellText(line, kReason) +
         '\n';
}

QString UnconvertedRows::listText() const {
  QString text = "Line\tText\tReason\n";
  for (int row = 0; row < rowCount(); ++row) text += rowText(row);
  const std::uint64_t rest = lines_.count - lines_.lines.size();
  if (rest != 0) text += QString("and %1 more\n").arg(rest);
  return text;
}

QString UnconvertedRows::rowsText(const QItemSelectionModel& selection) const {
  std::set<int> rows;
  for (const QModelIndex& cell : selection.selectedIndexes()) rows.insert(cell.row());
  QString text;
  for (const int row : rows) text += rowText(row);
  return text;
}

int UnconvertedRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(lines_.lines.size());
}

int UnconvertedRows::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant UnconvertedRows::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const run::UnconvertedLine& line = lines_.lines[static_cast<std::size_t>(index.row())];
  if (role == Qt::DisplayRole) return cellText(line, index.column());
  if (role == Qt::ToolTipRole) return plainTip(cellText(line, index.column()));
  if (role == Qt::TextAlignmentRole) return QVariant(alignmentOf(index.column()));
  if (role == Qt::ForegroundRole && index.column() == kReason && line.refused) {
    return planColours(QGuiApplication::palette()).of(PlanState::refused);
  }
  return {};
}

QVariant UnconvertedRows::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return QVariant(alignmentOf(section));
  return role == Qt::DisplayRole ? QVariant(kHeadings[static_cast<std::size_t>(section)]) : QVariant();
}

}  // namespace tovak::ui
