#include <QRadioButton>
#include <algorithm>
#include <limits>

#include "support/widgets.h"
#include "ui/symbology.h"
#include "ui/tovak_about.h"
#include "ui/tovak_def_pt_no.h"
#include "ui/tovak_delorme.h"
#include "ui/tovak_maptech.h"
#include "ui/tovak_wpt_txt.h"

namespace tovak::ui {
namespace {

using tests::box;
using tests::caption;
using tests::control;
using tests::press;

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();

TEST(NumberingDialog, StoresWholeNumbers) {
  const struct {
    const char* first;
    const char* step;
    std::int32_t storedFirst;
    std::int32_t storedStep;
  } cases[] = {
      {"100", "5", 100, 5},
      {"2.5", "3.5", 2, 4},
      {"12abc", "", 12, 0},
      {" -7", "x", -7, 0},
      {"2147483647", "-1", kLargest, -1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.first);
    run::RunSettings settings;
    frmTovakDefPtNo dialog(settings);
    EXPECT_EQ(box(dialog, "defPN").text(), "1");
    EXPECT_EQ(box(dialog, "defPInc").text(), "1");
    box(dialog, "defPN").setText(c.first);
    box(dialog, "defPInc").setText(c.step);
    press(dialog, "cmdContinue");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(settings.NextPointNumber, c.storedFirst);
    EXPECT_EQ(settings.PointNumberIncrement, c.storedStep);
  }
}

TEST(NumberingDialog, RefusesNumbersOutOfRange) {
  run::RunSettings settings;
  frmTovakDefPtNo dialog(settings);
  for (const char* name : {"defPN", "defPInc"}) {
    SCOPED_TRACE(name);
    QLineEdit& number = box(dialog, name);
    number.setText("2147483648");
    const tests::ShownBox shown = tests::boxOpenedBy([&] { press(dialog, "cmdContinue"); });
    EXPECT_EQ(shown.text, "Point numbers and their steps lie between -2147483648 and 2147483647.");
    number.setText("5");
  }
  EXPECT_EQ(dialog.result(), 0);
  EXPECT_EQ(settings.NextPointNumber, 1);
  EXPECT_EQ(settings.PointNumberIncrement, 1);
}

TEST(WaypointDialog, StoresTheFieldChosen) {
  const struct {
    const char* before;
    const char* shown;
    const char* chosen;
    const char* after;
  } cases[] = {
      {"PN", "optUsePN", "optUseST", "ST"},
      {"ST", "optUseST", "optUsePD", "PD"},
      {"PD", "optUsePD", "optUsePN", "PN"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.before);
    run::RunSettings settings;
    settings.waypointName = c.before;
    frmTovakWptTxt dialog(settings);
    EXPECT_TRUE(control<QRadioButton>(dialog, c.shown).isChecked());
    press(dialog, c.chosen);
    press(dialog, "cmdContinue");
    EXPECT_EQ(settings.waypointName, c.after);
  }
}

TEST(MaptechDialog, KeepsListsAndNumbersTogether) {
  run::RunSettings settings;
  settings.maptechColor = "C0C0C0";
  settings.maptechSymbol = 28;
  frmTovakMaptech dialog(settings);
  QComboBox& colors = control<QComboBox>(dialog, "cmbColor");
  QComboBox& symbols = control<QComboBox>(dialog, "cmbSymbol");
  EXPECT_EQ(colors.currentText(), "light gray");
  EXPECT_EQ(symbols.currentText(), "Star (6-point, detailed)");
  EXPECT_EQ(box(dialog, "txtColor").text(), "C0C0C0");
  EXPECT_EQ(box(dialog, "txtSymbol").text(), "28");

  box(dialog, "txtColor").setText("808000");
  EXPECT_EQ(colors.currentText(), "forest green");
  box(dialog, "txtSymbol").setText("44");
  EXPECT_EQ(symbols.currentText(), "Circle (12:00)");
  for (const auto& [list, index] : {std::pair{&colors, 6}, std::pair{&symbols, 0}}) {
    list->setCurrentIndex(index);
    emit list->activated(index);
  }
  EXPECT_EQ(box(dialog, "txtColor").text(), "ff0000");
  EXPECT_EQ(box(dialog, "txtSymbol").text(), "0");

  // Numbers that no list has.
  box(dialog, "txtColor").setText("12ab");
  box(dialog, "txtSymbol").setText("70");
  EXPECT_EQ(colors.currentIndex(), -1);
  EXPECT_EQ(symbols.currentIndex(), -1);
  press(dialog, "cmdContinue");
  EXPECT_EQ(settings.maptechColor, "12ab");
  EXPECT_EQ(settings.maptechSymbol, 70);
}

TEST(MaptechDialog, TakesNothingThatIsNoNumber) {
  run::RunSettings settings;
  const struct {
    const char* name;
    const char* text;
    bool taken;
  } cases[] = {
      {"txtColor", "", false},        {"txtColor", "red", false},  {"txtColor", "0xff", false},
      {"txtColor", "1000000", false}, {"txtColor", "0", true},     {"txtSymbol", "", false},
      {"txtSymbol", "-1", false},     {"txtSymbol", "1.5", false}, {"txtSymbol", "12345678901", false},
      {"txtSymbol", "45", true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.name) + " " + c.text);
    const frmTovakMaptech dialog(settings);
    box(dialog, c.name).setText(c.text);
    EXPECT_EQ(control<QAbstractButton>(dialog, "cmdContinue").isEnabled(), c.taken);
  }
}

TEST(DelormeDialog, StoresANameOfTheListOrATypedOne) {
  run::RunSettings settings;
  settings.delormeSymbol = "ANCHOR";
  for (const char* name : {"ANIMAL TRACKS", "MY SYMBOL"}) {
    SCOPED_TRACE(name);
    frmTovakDelorme dialog(settings);
    QComboBox& list = control<QComboBox>(dialog, "cmbSymbol");
    EXPECT_EQ(list.currentText().toStdString(), settings.delormeSymbol);
    list.setEditText("  ");
    EXPECT_FALSE(control<QAbstractButton>(dialog, "cmdContinue").isEnabled());
    list.setEditText(QString(" %1 ").arg(name));
    press(dialog, "cmdContinue");
    EXPECT_EQ(settings.delormeSymbol, name);
  }
}

TEST(OptionDialogs, ChangeNothingWhenTheyAreCancelled) {
  run::RunSettings settings;
  frmTovakDefPtNo numbering(settings);
  box(numbering, "defPN").setText("7");
  frmTovakWptTxt waypoints(settings);
  press(waypoints, "optUseST");
  frmTovakMaptech maptech(settings);
  box(maptech, "txtColor").setText("0");
  box(maptech, "txtSymbol").setText("0");
  frmTovakDelorme delorme(settings);
  control<QComboBox>(delorme, "cmbSymbol").setEditText("ANCHOR");
  for (QDialog* dialog : {static_cast<QDialog*>(&numbering), static_cast<QDialog*>(&waypoints),
                          static_cast<QDialog*>(&maptech), static_cast<QDialog*>(&delorme)}) {
    SCOPED_TRACE(dialog->objectName().toStdString());
    dialog->show();
    EXPECT_EQ(caption(*dialog, "cmdContinue"), "Continue");
    EXPECT_EQ(caption(*dialog, "cmdReturn"), "Cancel");
    press(*dialog, "cmdReturn");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
  }
  const run::RunSettings untouched;
  EXPECT_EQ(settings.NextPointNumber, untouched.NextPointNumber);
  EXPECT_EQ(settings.waypointName, untouched.waypointName);
  EXPECT_EQ(settings.maptechColor, untouched.maptechColor);
  EXPECT_EQ(settings.maptechSymbol, untouched.maptechSymbol);
  EXPECT_EQ(settings.delormeSymbol, untouched.delormeSymbol);
}

TEST(Symbols, StandWhereTheirNumbersSay) {
  const struct {
    std::size_t number;
    const char* name;
  } cases[] = {{0, "Blank (no symbol)"}, {17, "Target"},        {18, "Star (3-point)"}, {27, "Star (12-point)"},
               {32, "Circle (star)"},    {33, "Circle (1:00)"}, {44, "Circle (12:00)"}};
  for (const auto& c : cases) EXPECT_EQ(kMaptechSymbols[c.number], c.name);
  EXPECT_TRUE(std::is_sorted(kDelormeSymbols.begin(), kDelormeSymbols.end()));
  const run::RunSettings settings;
  EXPECT_TRUE(std::binary_search(kDelormeSymbols.begin(), kDelormeSymbols.end(), settings.delormeSymbol));
}

TEST(AboutDialog, TellsTheVersionAndCloses) {
  frmTovakAbout dialog;
  dialog.show();
  EXPECT_TRUE(control<QLabel>(dialog, "lblVersion").text().startsWith("Version 1."));
  EXPECT_EQ(control<QLabel>(dialog, "lblBuildDate").text().size(), QString("Build date 2026-11-21").size());
  press(dialog, "cmdOK");
  EXPECT_FALSE(dialog.isVisible());
}

}  // namespace
}  // namespace tovak::ui
