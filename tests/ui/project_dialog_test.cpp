// The user-defined project from its dialog to the sides of a run.
#include <QPlainTextEdit>

#include <gtest/gtest.h>

#include "formats/delimited/built_in_formats.h"
#include "formats/format_tables.h"
#include "run/conversion_run.h"
#include "run/format_index.h"
#include "run/user_project.h"
#include "support/dialog_script.h"
#include "support/environment.h"
#include "support/scripted_engine.h"
#include "support/temporary_folder.h"
#include "support/widgets.h"
#include "ui/tovak.h"

namespace tovak::ui {
namespace {

using tests::box;
using tests::control;

/// Knows the project of the file, and takes every definition but "bad".
class ProjectEngine final : public tests::ScriptedEngine {
 public:
  std::string GetProjectionData(std::int16_t code) override {
    const auto [stored, error] = run::readUserProject(run::userProjectFile());
    if (code != -263 && code != 263) return {};
    if (!error.empty()) return code < 0 ? error : "User-defined project (its file cannot be used)~263";
    return !stored ? "None Selected" : stored->name + (stored->metres ? "~263M" : "~263");
  }
  std::int16_t GetProjectionFromText(const std::string& text, std::string& filled) override {
    filled = "asked: " + text;
    return text.ends_with("bad") ? 999 : 263;
  }
};

TEST(ProjectDialog, StoresWhatTheEngineTakesAndTheSidesFollow) {
  const tests::TemporaryFolder folder;
  const tests::EnvironmentVariable data("APPDATA", folder.path().string());
  folder.write("in.csv", "");
  std::filesystem::create_directory(folder.path() / "QrAppsData");
  ProjectEngine engine;
  app::WindowStart start;
  start.engine = &engine;
  start.formatTables = formats::formatTables();
  start.delimitedFormats = {formats::standardFormat()};
  start.settings.TargetProjectionCode = 263;
  frmTovak window(start);
  EXPECT_EQ(control<QLabel>(window, "lblTargetSystem").toolTip(), "None Selected");

  tests::DialogScript script;
  script.expect("frmTovakProject", [](QDialog& dialog) {
    const auto& store = control<QPushButton>(dialog, "cmdStore");
    const auto told = [&] { return control<QLabel>(dialog, "lblWhereabouts").text().toStdString(); };
    EXPECT_FALSE(store.isEnabled());
    control<QPlainTextEdit>(dialog, "txtDefinition").setPlainText(" a\n  bad ");
    EXPECT_EQ(told(), "asked: 263M a bad");
    EXPECT_FALSE(store.isEnabled());
    control<QPlainTextEdit>(dialog, "txtDefinition").setPlainText("a\ngood");
    EXPECT_EQ(told(), "asked: 263M a good\nNot to be stored yet: the project has no name.");
    EXPECT_FALSE(store.isEnabled());
    box(dialog, "txtProjectName").setText(" Bridge 9 ");
    EXPECT_EQ(told(), "asked: 263M a good");
    tests::press(dialog, "cmdStore");
  });
  tests::press(window, "cmdProject");
  EXPECT_TRUE(script.finished());
  EXPECT_TRUE(
      tests::contentsOf(run::userProjectFile()).ends_with("\nname = Bridge 9\ndefinition = a good\nunit = metres\n"));
  EXPECT_EQ(box(window, "txtTargetProjection").text(), "263M");
  EXPECT_TRUE(control<QAbstractButton>(window, "btnTargetMetric").isChecked());
  EXPECT_FALSE(control<QAbstractButton>(window, "btnTargetEnglish").isEnabled());
  EXPECT_TRUE(control<QAbstractButton>(window, "btnSourceEnglish").isEnabled());

  script.expect("frmTovakProject", [](QDialog& dialog) {
    EXPECT_EQ(box(dialog, "txtProjectName").text(), "Bridge 9");
    EXPECT_EQ(control<QPlainTextEdit>(dialog, "txtDefinition").toPlainText(), "a good");
    control<QAbstractButton>(dialog, "btnProjectEnglish").click();
    EXPECT_EQ(control<QLabel>(dialog, "lblWhereabouts").text(), "asked: 263 a good");
    tests::press(dialog, "cmdStore");
  });
  control<QAction>(window, "mnuToolsProject").trigger();
  EXPECT_TRUE(control<QAbstractButton>(window, "btnTargetEnglish").isChecked());
  EXPECT_EQ(window.selections().run.target.projectionText, "263");

  // The unit of an agency's table is chosen, whatever system was chosen before it.
  const auto chooseSource = [&window](int index) {
    control<QComboBox>(window, "lstSourceFormat").setCurrentIndex(index);
    emit control<QComboBox>(window, "lstSourceFormat").activated(index);
  };
  emit box(window, "txtSourceFile").textEdited(QString::fromStdString(folder.file("in.csv")));
  chooseSource(run::source::GeodeticsSpecial);
  EXPECT_TRUE(control<QAbstractButton>(window, "btnTargetMetric").isChecked());
  EXPECT_EQ(window.selections().run.target.projectionText, "263M");
  chooseSource(run::source::CommaDelimited);
  EXPECT_EQ(window.selections().run.target.projectionText, "263");

  // A file that was damaged is seen at the side and in the dialog.
  folder.write("QrAppsData/project.txt", "name = Bridge 9\nunit = yards\n");
  const QString fault =
      QString::fromStdString(run::userProjectFile()) + ": line 2: the unit is neither \"metres\" nor \"feet\"";
  script.expect("frmTovakProject", [&fault](QDialog& dialog) {
    EXPECT_EQ(control<QLabel>(dialog, "lblWhereabouts").text(), fault);
    tests::press(dialog, "cmdReturn");
  });
  tests::press(window, "cmdProject");
  EXPECT_TRUE(script.finished());
  EXPECT_EQ(control<QLabel>(window, "lblTargetSystem").toolTip(), fault);
}

}  // namespace
}  // namespace tovak::ui
