// The user-defined project from its dialog to the sides of a run.
#include <QPlainTextEdit>

#include "run/user_project.h"
#include "support/environment.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"

namespace tovak::ui {
namespace {

using tests::box;
using tests::control;

/// Its engine knows the project of the file, and takes every definition but "bad".
class ProjectDialog : public MainWindow {
 protected:
  class Engine final : public tests::ScriptedEngine {
   public:
    std::string GetProjectionData(std::int16_t code) override {
      const auto [read, error] = run::readUserProject(run::userProjectFile());
      const std::optional<run::UserProject> stored = read.value_or(std::nullopt);
      if (code != -263 && code != 263) return {};
      if (!error.empty()) return code < 0 ? error : "User-defined project (its file cannot be used)~263";
      return !stored ? "None Selected" : stored->name + (stored->metres ? "~263M" : "~263");
    }
  };
  ProjectDialog() {
    projects.projectionFromText = [](const std::string& text, std::string& filled) {
      filled =
          std::string("Datum NAD83\n") + (text.ends_with("us-ft") ? "Unit U.S. survey feet\n" : "") + "asked: " + text;
      return static_cast<std::int16_t>(text.ends_with("bad") ? 999 : 263);
    };
    start.engine = &projects;
    std::filesystem::create_directory(folder.path() / "QrAppsData");
  }

  Engine projects;
  const tests::EnvironmentVariable data{"APPDATA", folder.path().string()};
};

TEST_F(ProjectDialog, StoresWhatTheEngineTakesAndTheSidesFollow) {
  start.settings.TargetProjectionCode = 263;
  open();
  EXPECT_EQ(widget<QLabel>("lblTargetSystem").toolTip(), plainTip("None Selected"));

  dialogs.expect("frmTovakProject", [](QDialog& dialog) {
    const auto& store = control<QPushButton>(dialog, "cmdStore");
    const auto told = [&] { return control<QLabel>(dialog, "lblWhereabouts").text().toStdString(); };
    EXPECT_FALSE(store.isEnabled());
    control<QPlainTextEdit>(dialog, "txtDefinition").setPlainText(" a\n  bad ");
    EXPECT_EQ(told(), "Datum NAD83\nasked: 263M\na bad");
    EXPECT_FALSE(store.isEnabled());
    control<QPlainTextEdit>(dialog, "txtDefinition").setPlainText("a\ngood");
    EXPECT_EQ(told(), "Datum NAD83\nasked: 263M\na good\nNot to be stored yet: the project has no name.");
    EXPECT_FALSE(store.isEnabled());
    control<QPlainTextEdit>(dialog, "txtDefinition").setPlainText("a us-ft");
    EXPECT_TRUE(told().find("asked: 263\n") != std::string::npos) << told();
    EXPECT_FALSE(control<QWidget>(dialog, "btnProjectMetric").isEnabled());
    control<QPlainTextEdit>(dialog, "txtDefinition").setPlainText("a\ngood");
    EXPECT_TRUE(control<QWidget>(dialog, "btnProjectMetric").isEnabled());
    box(dialog, "txtProjectName").setText(" Bridge 9 ");
    EXPECT_EQ(told(), "Datum NAD83\nasked: 263M\na good");
    tests::press(dialog, "cmdStore");
  });
  click("cmdProject");
  EXPECT_TRUE(dialogs.finished());
  EXPECT_TRUE(tests::contentsOf(run::userProjectFile())
                  .ends_with("\nname = Bridge 9\ndefinition = a good\nunit = metres\ndatum = NAD83\n"));
  EXPECT_EQ(text("txtTargetProjection"), "263M");
  EXPECT_TRUE(checked("btnTargetMetric"));
  EXPECT_FALSE(enabled("btnTargetEnglish"));
  EXPECT_TRUE(enabled("btnSourceEnglish"));

  dialogs.expect("frmTovakProject", [](QDialog& dialog) {
    EXPECT_EQ(box(dialog, "txtProjectName").text(), "Bridge 9");
    EXPECT_EQ(control<QPlainTextEdit>(dialog, "txtDefinition").toPlainText(), "a good");
    control<QAbstractButton>(dialog, "btnProjectEnglish").click();
    EXPECT_EQ(control<QLabel>(dialog, "lblWhereabouts").text(), "Datum NAD83\nasked: 263\na good");
    tests::press(dialog, "cmdStore");
  });
  trigger("mnuToolsProject");
  EXPECT_TRUE(checked("btnTargetEnglish"));
  EXPECT_EQ(window->selections().run.target.projectionText, "263");

  // The datum that was found goes into the file, and there is no crossing of datums to warn of.
  start.settings = window->selections().run;
  start.settings.SourceProjectionCode = 4;
  start.settings.sourceFormat = start.settings.targetFormat = 1;
  start.settings.source.fileName = folder.write("in.csv", "1,2\n");
  start.settings.target.fileName = folder.file("out.csv");
  open();
  click("cmdExecute");
  EXPECT_EQ(tests::contentsOf(folder.file("out.csv")), "$Tovak#263$ NAD83 Bridge 9 (Feet)\n2.000,4.000,,1,3.000,,,\n");
  EXPECT_EQ(dialogs.boxes.size(), 1U);

  // The unit of an agency's table is chosen, whatever system was chosen before it.
  emit widget<QLineEdit>("txtSourceFile").textEdited("in.csv");
  choose("lstSourceFormat", run::source::GeodeticsSpecial);
  EXPECT_TRUE(checked("btnTargetMetric") && enabled("btnTargetMetric"));
  EXPECT_EQ(window->selections().run.target.projectionText, "263M");
  choose("lstSourceFormat", run::source::CommaDelimited);
  EXPECT_EQ(window->selections().run.target.projectionText, "263");

  // A file that was damaged is seen at the side and in the dialog.
  folder.write("QrAppsData/project.txt", "name = Bridge 9\nunit = yards\n");
  const QString fault =
      QString::fromStdString(run::userProjectFile()) + ": line 2: the unit is neither \"metres\" nor \"feet\"";
  dialogs.expect("frmTovakProject", [&fault](QDialog& dialog) {
    EXPECT_EQ(control<QLabel>(dialog, "lblWhereabouts").text(), fault);
    tests::press(dialog, "cmdReturn");
  });
  click("cmdProject");
  EXPECT_TRUE(dialogs.finished());
  EXPECT_EQ(widget<QLabel>("lblTargetSystem").toolTip(), plainTip(fault));
}

}  // namespace
}  // namespace tovak::ui
