#include <QClipboard>
#include <QMenu>
#include <QTableView>
#include <QTest>

#include "support/widgets.h"
#include "ui/tovak_output.h"

namespace tovak::ui {
namespace {

using tests::control;

/// A shown dialog with two rows of plane points.
struct Grid {
  Grid() : dialog(settings), table(control<QTableView>(dialog, "msfgOutput")) {
    settings.SourceProjectionCode = settings.TargetProjectionCode = 4;
    settings.accuracy = text::Accuracy::Tenth;
    dialog.startGrid();
    add("1", "Iron, found", 0.1, "A");
    add("2", "tab\there", 0.2, "B");
    dialog.show();
  }

  void add(const char* number, const char* description, double tenths, const char* result) {
    run::PointRecord point;
    point.pointNumber = number;
    point.description = description;
    point.InNorthLat = 10 + tenths;
    point.InEastLon = 20 + tenths;
    point.OutNorthLat = 30 + tenths;
    point.OutEastLon = 40 + tenths;
    point.Elevation = 10 * tenths + 0.5;
    point.OutInfo = result;
    dialog.addRow(point);
  }

  void select(int row, int column) {
    table.selectionModel()->select(table.model()->index(row, column), QItemSelectionModel::Select);
  }

  run::RunSettings settings;
  frmTovakOutput dialog;
  QTableView& table;
};

std::string clipboard() {
  return QApplication::clipboard()->text().toStdString();
}

TEST(OutputGrid, CopiesTheSelectedCells) {
  using Cell = std::pair<int, int>;
  const struct {
    std::vector<Cell> selected;
    const char* copied;
    const char* table;
  } cases[] = {
      {{{0, 2}}, "10.1", "Source Northing/Latitude\n10.1\n"},
      {{{0, 3}, {0, 2}}, "10.1,20.1", "Source Northing/Latitude\tSource Easting/Longitude\n10.1\t20.1\n"},
      {{{1, 0}, {0, 0}, {1, 7}, {0, 7}}, "1,A\r2,B", "Point Number\tResult\n1\tA\n2\tB\n"},
      {{{0, 1}, {1, 1}}, "Iron, found\rtab,here", "Description\nIron, found\ntab here\n"},
      {{{0, 7}, {1, 0}}, "A\r2", "Point Number\tResult\n\tA\n2\t\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.copied);
    Grid grid;
    ASSERT_TRUE(QTest::qWaitForWindowActive(&grid.dialog));
    for (const auto& [row, column] : c.selected) grid.select(row, column);
    control<QMenu>(grid.dialog, "mnuPopUp").actions().at(0)->trigger();
    EXPECT_EQ(clipboard(), c.copied);
    QTest::keyClick(&grid.table, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(clipboard(), c.table);
  }
}

TEST(OutputGrid, CopiesEverythingByKeys) {
  Grid grid;
  grid.dialog.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&grid.dialog));
  QTest::keyClick(grid.dialog.focusWidget(), Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(grid.dialog.focusWidget(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(clipboard(),
            "1,Iron, found,10.1,20.1,30.1,40.1,1.5,A\r"
            "2,tab,here,10.2,20.2,30.2,40.2,2.5,B");
}

TEST(OutputGrid, StartsAfreshUnderItsHeadings) {
  Grid grid;
  const QAbstractItemModel& rows = *grid.table.model();
  EXPECT_EQ(rows.rowCount(), 2);
  grid.dialog.startGrid();
  EXPECT_EQ(rows.rowCount(), 0);
  std::string headings;
  for (int column = 0; column < rows.columnCount(); ++column)
    headings += rows.headerData(column, Qt::Horizontal).toString().replace('\n', ' ').toStdString() + '|';
  EXPECT_EQ(headings,
            "Point Number|Description|Source Northing/Latitude|Source Easting/Longitude|Target Northing/Latitude|"
            "Target Easting/Longitude|Elevation|Result|");
  grid.add("3", "", 0.3, "");
  grid.dialog.hide();
  grid.dialog.show();
  EXPECT_EQ(rows.rowCount(), 1);
  EXPECT_EQ(rows.data(rows.index(0, 0)).toString(), "3");
}

}  // namespace
}  // namespace tovak::ui
