#include <QClipboard>
#include <QMenu>
#include <QTableView>
#include <QTest>

#include "support/widgets.h"
#include "ui/tovak_output.h"

namespace tovak::ui {
namespace {

using tests::caption;
using tests::control;

/// A shown dialog with two rows.
struct Grid {
  Grid() : table(control<QTableView>(dialog, "msfgOutput")) {
    dialog.startGrid();
    dialog.addRow("1", "Iron, found", {"10.1", "20.1", "30.1", "40.1", "1.5"}, "A");
    dialog.addRow("2", "tab\there", {"10.2", "20.2", "30.2", "40.2", "2.5"}, "B");
    dialog.show();
  }

  void select(int row, int column) {
    table.selectionModel()->select(table.model()->index(row, column), QItemSelectionModel::Select);
  }
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
  } cases[] = {
      {{{0, 2}}, "10.1"},
      {{{0, 3}, {0, 2}}, "10.1,20.1"},
      {{{1, 0}, {0, 0}, {1, 7}, {0, 7}}, "1,A\r2,B"},
      {{{0, 1}, {1, 1}}, "Iron, found\rtab,here"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.copied);
    Grid grid;
    for (const auto& [row, column] : c.selected) grid.select(row, column);
    control<QMenu>(grid.dialog, "mnuPopUp").actions().at(0)->trigger();
    EXPECT_EQ(clipboard(), c.copied);
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

TEST(OutputGrid, CannotCopyNothing) {
  Grid grid;
  QApplication::clipboard()->setText("before");
  QAction& copy = control<QAction>(grid.dialog, "mnuCopy");
  EXPECT_FALSE(copy.isEnabled());
  grid.select(0, 0);
  EXPECT_TRUE(copy.isEnabled());
  grid.dialog.startGrid();
  EXPECT_FALSE(copy.isEnabled());
  copy.trigger();
  EXPECT_EQ(clipboard(), "before");
}

TEST(OutputGrid, StartsAfreshUnderItsHeadings) {
  Grid grid;
  const QAbstractItemModel& rows = *grid.table.model();
  EXPECT_EQ(rows.rowCount(), 2);
  grid.dialog.startGrid();
  EXPECT_EQ(rows.rowCount(), 0);
  const char* const headings[] = {"Point\nNumber",
                                  "Description",
                                  "Source\nNorthing/Latitude",
                                  "Source\nEasting/Longitude",
                                  "Target\nNorthing/Latitude",
                                  "Target\nEasting/Longitude",
                                  "Elevation",
                                  "Result"};
  ASSERT_EQ(rows.columnCount(), static_cast<int>(std::size(headings)));
  for (int column = 0; column < rows.columnCount(); ++column) {
    EXPECT_EQ(rows.headerData(column, Qt::Horizontal).toString(), headings[column]);
  }
  grid.dialog.addRow("3", "", {}, "");
  EXPECT_EQ(rows.data(rows.index(0, 0)).toString(), "3");
}

TEST(OutputGrid, OpensItsMenuForTheRightButtonOnly) {
  Grid grid;
  QMenu& menu = control<QMenu>(grid.dialog, "mnuPopUp");
  QWidget* const cells = grid.table.viewport();
  const QPoint at = grid.table.visualRect(grid.table.model()->index(0, 0)).center();
  const auto pressButton = [&](Qt::MouseButton button) {
    QTest::mouseClick(cells, button, Qt::NoModifier, at);
    // The platform adds this event to a press of the right button.
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, cells->mapToGlobal(at));
    if (button == Qt::RightButton) QApplication::sendEvent(cells, &event);
  };
  pressButton(Qt::LeftButton);
  EXPECT_FALSE(menu.isVisible());
  pressButton(Qt::RightButton);
  EXPECT_TRUE(menu.isVisible());
  EXPECT_EQ(menu.actions().at(0)->text().remove('&'), "Copy to Clipboard");
  menu.close();
}

TEST(OutputGrid, NamesSourceAndTargetAndHides) {
  Grid grid;
  grid.dialog.setDescriptions("State plane South : NAD83(1996)", "UTM : NAD27");
  EXPECT_EQ(caption(grid.dialog, "lblInProj"), "State plane South : NAD83(1996)");
  EXPECT_EQ(caption(grid.dialog, "lblOutProj"), "UTM : NAD27");
  tests::press(grid.dialog, "cmdReturn");
  EXPECT_FALSE(grid.dialog.isVisible());
  EXPECT_EQ(grid.table.model()->rowCount(), 2);
}

}  // namespace
}  // namespace tovak::ui
