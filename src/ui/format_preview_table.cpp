#include "ui/format_preview_table.h"

#include <QHeaderView>
#include <algorithm>

#include "ui/qt_text.h"

namespace tovak::ui {
namespace {

constexpr int kWidestColumn = 280;
constexpr int kRowGap = 4;

QTableWidgetItem* cellItem(const QTableWidget& table, const formats::delimited::PreviewCell& cell) {
  auto* const item = new QTableWidgetItem(toQString(cell.text));
  if (cell.zeroCoordinate) {
    const bool dark = table.palette().color(QPalette::Base).lightness() < 128;
    item->setBackground(dark ? QColor(120, 35, 30) : QColor(255, 205, 200));
    item->setToolTip(QTableWidget::tr("A coordinate that reads as 0"));
  }
  return item;
}

void showRow(QTableWidget& table, int number, const formats::delimited::PreviewRow& row) {
  for (std::size_t column = 0; column < row.cells.size(); ++column) {
    table.setItem(number, static_cast<int>(column), cellItem(table, row.cells[column]));
  }
  if (!row.undivided) return;
  QTableWidgetItem& line = *table.item(number, 0);
  line.setForeground(table.palette().color(QPalette::PlaceholderText));
  line.setToolTip(QTableWidget::tr("The line does not hold the delimiter and is passed over"));
  if (table.columnCount() > 1) table.setSpan(number, 0, 1, table.columnCount());
}

/// Makes columns as wide as their texts, within reason. A line that is not split does not affect their width.
void fitColumns(QTableWidget& table) {
  table.horizontalHeader()->setMaximumSectionSize(table.columnCount() == 1 ? QWIDGETSIZE_MAX : kWidestColumn);
  table.horizontalHeader()->setStretchLastSection(true);
  table.resizeColumnsToContents();
  table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + kRowGap);
}

}  // namespace

void showPreview(QTableWidget& table, const formats::delimited::FormatPreview& preview) {
  table.clear();
  table.clearSpans();
  QStringList columns;
  for (const std::string& column : preview.columns) columns += toQString(column);
  if (columns.isEmpty()) columns += QString();
  table.setColumnCount(static_cast<int>(columns.size()));
  table.setHorizontalHeaderLabels(columns);
  table.setRowCount(static_cast<int>(preview.rows.size()));
  QStringList labels;
  for (std::size_t number = 0; number < preview.rows.size(); ++number) {
    labels += toQString(preview.rows[number].label);
    showRow(table, static_cast<int>(number), preview.rows[number]);
  }
  table.setVerticalHeaderLabels(labels);
  fitColumns(table);
}

}  // namespace tovak::ui
