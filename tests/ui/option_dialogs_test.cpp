#include "support/dialog_script.h"
#include "support/row.h"
#include "support/widgets.h"
#include "ui/tovak_def_pt_no.h"
#include "ui/tovak_maptech.h"

namespace tovak::ui {
namespace {

using tests::box;
using tests::control;
using tests::press;

TEST(NumberingDialog, StoresWholeNumbers) {
  const std::tuple<const char*, const char*, std::string> cases[] = {{"100", "5", "100|5"},
                                                                     {"2.5", "3.5", "2|4"},
                                                                     {"12abc", "", "12|0"},
                                                                     {" -7", "x", "-7|0"},
                                                                     {"2147483647", "-1", "2147483647|-1"}};
  for (const auto& [first, step, stored] : cases) {
    run::RunSettings settings;
    frmTovakDefPtNo dialog(settings);
    EXPECT_EQ(box(dialog, "defPN").text() + box(dialog, "defPInc").text(), "11");
    box(dialog, "defPN").setText(first);
    box(dialog, "defPInc").setText(step);
    press(dialog, "cmdContinue");
    EXPECT_EQ(tests::row(settings.NextPointNumber, settings.PointNumberIncrement), stored);
  }
}

TEST(NumberingDialog, RefusesNumbersOutOfRange) {
  tests::DialogScript script;
  run::RunSettings settings;
  frmTovakDefPtNo dialog(settings);
  for (const char* name : {"defPN", "defPInc"}) {
    SCOPED_TRACE(name);
    QLineEdit& number = box(dialog, name);
    number.setText("2147483648");
    press(dialog, "cmdContinue");
    EXPECT_EQ(script.boxes.back().text, "Point numbers and their steps lie between -2147483648 and 2147483647.");
    number.setText("5");
  }
  EXPECT_EQ(dialog.result(), 0);
  EXPECT_EQ(settings.NextPointNumber, 1);
  EXPECT_EQ(settings.PointNumberIncrement, 1);
}

TEST(MaptechDialog, KeepsListsAndNumbersTogether) {
  run::RunSettings settings;
  settings.options.maptech.color = "C0C0C0";
  settings.options.maptech.symbol = 28;
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

  for (const auto& [name, text] : {std::pair{"txtColor", "red"}, {"txtColor", "1000000"}, {"txtSymbol", "-1"}}) {
    box(dialog, name).setText(text);
    EXPECT_FALSE(control<QAbstractButton>(dialog, "cmdContinue").isEnabled()) << text;
  }
  // Numbers that no list has.
  box(dialog, "txtColor").setText("12ab");
  box(dialog, "txtSymbol").setText("70");
  EXPECT_EQ(colors.currentIndex(), -1);
  EXPECT_EQ(symbols.currentIndex(), -1);
  press(dialog, "cmdContinue");
  EXPECT_EQ(settings.options.maptech.color, "12ab");
  EXPECT_EQ(settings.options.maptech.symbol, 70);
}

}  // namespace
}  // namespace tovak::ui
