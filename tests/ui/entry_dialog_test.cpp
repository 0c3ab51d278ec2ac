#include <QClipboard>
#include <QTest>

#include "support/widgets.h"
#include "ui/tovak_input.h"

namespace tovak::ui {
namespace {

using tests::box;
using tests::caption;
using tests::press;

TEST(EntryDialog, IsLabelledForItsSource) {
  const struct {
    std::int16_t code;
    bool metres;
    run::Adjustment adjustment;
    const char* northing;
    const char* easting;
    const char* hint;
    const char* unit;
    const char* source;
  } cases[] = {
      {0, false, run::Adjustment::Nad83_1996, "Latitude", "Longitude",
       "DD MM SS.sssss  or  DDMMSS.sssss  or  DD.MMSSsssss", "(ft)", "Some system : NAD83(1996)"},
      {107, true, run::Adjustment::Nad83_1996, "North/Y", "East/X", "Metric Plane Coordinates", "(m)",
       "Some system : NAD27"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.code);
    run::RunSettings settings;
    settings.SourceProjectionCode = c.code;
    settings.source.metres = c.metres;
    settings.adjustment = c.adjustment;
    const frmTovakInput dialog(entryLabels(settings, "Some system"));
    EXPECT_EQ(caption(dialog, "lblLatNorthY"), c.northing);
    EXPECT_EQ(caption(dialog, "lblLongEastX"), c.easting);
    EXPECT_EQ(caption(dialog, "lblLatNYUnits"), c.hint);
    for (const char* unit : {"lblZCUnits", "lblHGUnits", "lblHEUnits"}) EXPECT_EQ(caption(dialog, unit), c.unit);
    EXPECT_EQ(caption(dialog, "lblInProj"), c.source);
  }
}

TEST(EntryDialog, SplitsAPastedPair) {
  const struct {
    const char* pasted;
    const char* northing;
    const char* easting;
  } cases[] = {
      {"4950000.123,500000.456", "4950000.123", "500000.456"},
      {"45 30 15.5,93 15 30", "45 30 15.5", "93 15 30"},
      {"1,2,3", "1", "2,3"},
      {",2", "", "2"},
      {"4950000.123", "4950000.123", "before"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.pasted);
    const frmTovakInput dialog(EntryLabels{});
    box(dialog, "txtLongEastX").setText("before");
    QApplication::clipboard()->setText(c.pasted);
    box(dialog, "txtLatNorthY").paste();
    EXPECT_EQ(box(dialog, "txtLatNorthY").text(), c.northing);
    EXPECT_EQ(box(dialog, "txtLongEastX").text(), c.easting);
  }
}

TEST(EntryDialog, HandsOverWhatWasTyped) {
  const frmTovakInput dialog(EntryLabels{});
  const run::TypedTexts empty = dialog.texts();
  EXPECT_EQ(empty.elevation, 0);
  EXPECT_EQ(empty.geoid, 0);
  EXPECT_EQ(empty.ellipsoid, 0);

  const struct {
    const char* name;
    const char* text;
  } typed[] = {{"txtPointNumber", " 12 "},
               {"txtPointName", "  Iron found "},
               {"txtLatNorthY", "45 30 15.5"},
               {"txtLongEastX", " -93 15 30 "},
               {"txtZC", "812.25"},
               {"txtHG", "-27.5 ft"},
               {"txtHE", "x"}};
  for (const auto& t : typed) box(dialog, t.name).setText(t.text);
  const run::TypedTexts texts = dialog.texts();
  EXPECT_EQ(texts.number, "12");
  EXPECT_EQ(texts.name, "Iron found");
  EXPECT_EQ(texts.northing, "453015.5");
  EXPECT_EQ(texts.easting, "-931530");
  EXPECT_EQ(texts.elevation, 812.25);
  EXPECT_EQ(texts.geoid, -27.5);
  EXPECT_EQ(texts.ellipsoid, 0);
}

TEST(EntryDialog, AsksForAMissingCoordinate) {
  frmTovakInput dialog(EntryLabels{});
  dialog.show();
  const struct {
    const char* northing;
    const char* easting;
    const char* text;
    const char* focus;
  } cases[] = {
      {"  ", "500000", "Please enter a latitude or northing/Y value.", "txtLatNorthY"},
      {"4950000", "", "Please enter a longitude or easting/X value.", "txtLongEastX"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    box(dialog, "txtLatNorthY").setText(c.northing);
    box(dialog, "txtLongEastX").setText(c.easting);
    const tests::ShownBox shown = tests::boxOpenedBy([&] { press(dialog, "cmdConvert"); });
    EXPECT_EQ(shown.title, "Data entry error");
    EXPECT_EQ(shown.text, c.text);
    EXPECT_EQ(shown.icon, QMessageBox::Warning);
    EXPECT_EQ(dialog.focusWidget()->objectName(), c.focus);
    EXPECT_TRUE(dialog.isVisible());
  }
}

TEST(EntryDialog, KeepsItsTextsWhenItComesBack) {
  frmTovakInput dialog(EntryLabels{});
  dialog.show();
  box(dialog, "txtLatNorthY").setText("4x,500000");
  QTest::keyClick(&box(dialog, "txtLatNorthY"), Qt::Key_Return);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_FALSE(dialog.isVisible());
  dialog.show();
  EXPECT_EQ(dialog.texts().northing, "4x");
  press(dialog, "cmdReturn");
  EXPECT_EQ(dialog.result(), QDialog::Rejected);
  EXPECT_FALSE(dialog.isVisible());
}

}  // namespace
}  // namespace tovak::ui
