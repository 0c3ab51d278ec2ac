#include <QApplication>
#include <QClipboard>

#include "support/row.h"
#include "support/widgets.h"
#include "ui/tovak_input.h"

namespace tovak::ui {
namespace {

using tests::box;

TEST(EntryDialog, SplitsAPastedPair) {
  for (const auto& [pasted, northing, easting] : {std::tuple{"4950000.123,500000.456", "4950000.123", "500000.456"},
                                                  {"45 30 15.5,93 15 30", "45 30 15.5", "93 15 30"},
                                                  {"1,2,3", "1", "2,3"},
                                                  {",2", "", "2"},
                                                  {"4950000.123", "4950000.123", "before"}}) {
    const frmTovakInput dialog(EntryLabels{});
    box(dialog, "txtLongEastX").setText("before");
    QApplication::clipboard()->setText(pasted);
    box(dialog, "txtLatNorthY").paste();
    EXPECT_EQ(box(dialog, "txtLatNorthY").text().toStdString(), northing);
    EXPECT_EQ(box(dialog, "txtLongEastX").text().toStdString(), easting);
  }
}

std::string rowOf(const run::TypedTexts& t) {
  return tests::row(t.number, t.name, t.northing, t.easting, t.elevation, t.geoid, t.ellipsoid);
}

TEST(EntryDialog, HandsOverWhatWasTyped) {
  const frmTovakInput dialog(EntryLabels{});
  EXPECT_EQ(rowOf(dialog.texts()), "||||0|0|0");
  for (const auto& [name, text] : {std::pair{"txtPointNumber", " 12 "},
                                   {"txtPointName", "  Iron found "},
                                   {"txtLatNorthY", "45 30 15.5"},
                                   {"txtLongEastX", " -93 15 30 "},
                                   {"txtZC", "812.25"},
                                   {"txtHG", "-27.5 ft"},
                                   {"txtHE", "x"}})
    box(dialog, name).setText(text);
  EXPECT_EQ(rowOf(dialog.texts()), "12|Iron found|453015.5|-931530|812.25|-27.5|0");
}

}  // namespace
}  // namespace tovak::ui
