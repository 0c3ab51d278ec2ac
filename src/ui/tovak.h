/// The main window: it shows the selections, passes every action to the rules behind them, and runs the conversion.
#pragma once

#include <QMainWindow>
#include <QTimer>
#include <array>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "app/window_start.h"
#include "formats/delimited/format_editor.h"
#include "report/report_sheets.h"
#include "selection/selections.h"
#include "selection/suggestions.h"
#include "ui/finished_run.h"
#include "ui/help_window.h"
#include "ui/plan_model.h"
#include "ui/tovak_about.h"
#include "ui/tovak_def_pt_no.h"
#include "ui/tovak_input.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace Ui {
class frmTovak;
}

namespace tovak::ui {

class frmTovak : public QMainWindow {
  Q_OBJECT

 public:
  /// `start` outlives the window; its engine is there.
  explicit frmTovak(const app::WindowStart& start, QWidget* parent = nullptr);
  frmTovak(const frmTovak&) = delete;
  frmTovak& operator=(const frmTovak&) = delete;
  ~frmTovak() override;

  const selection::Selections& selections() const { return selections_; }

  /// Shows the messages that the program started with, and opens the geodetic database if it was started with one.
  void completeStart();

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// The widgets that source and target both have, and the selections behind them.
  struct SideWidgets {
    selection::Side side;
    QComboBox* format;
    QComboBox* layout;
    QPushButton* editLayout;
    QLineEdit* projection;
    QLabel* system;
    QPushButton* choose;
    QRadioButton* english;
    QRadioButton* metric;
    QLineEdit* file;
    QPushButton* browse;
    QString formatTip = {};
    bool numberSelected = false;  ///< in the projection box: what is typed next replaces a number
  };

  void makeSides();
  void fillLists();
  void connectSide(SideWidgets& side);
  void connectDatabase();
  void connectOptions();
  void connectReport();
  void connectMenus();
  void connectPreview();

  void refresh();
  void refreshSide(const SideWidgets& side);
  void refreshLayouts(const SideWidgets& side);
  void refreshOptions();
  void refreshDatabase();
  void showAllGroups();
  void refreshEnabled();
  void refreshMore();
  void showMore(bool shown);
  void bringOut(QWidget& control);
  void arrangeSides();
  QSize sizeWithoutScrolling() const;
  void showSystem(const SideWidgets& side);
  QString projectionProblem(std::int16_t code, const QString& name);
  void followForcedUnits();

  void chooseFormat(const SideWidgets& side, int index);
  bool keepFormatList(const SideWidgets& side, QEvent* event);
  void commitFormat(const SideWidgets& side);
  void chooseSourceFormat(int index);
  void chooseDatabase();
  void chooseTargetFormat(int index);
  void chooseLayout(const SideWidgets& side, int index);
  void editLayouts(formats::delimited::EditorPurpose purpose);
  void typeProjection(const SideWidgets& side, const QString& text);
  void chooseSystem(const SideWidgets& side);
  void exchangeSides();
  bool browse(const SideWidgets& side);
  void browseReport();
  /// Prints or previews a report file that the person chooses.
  void openReport(const QString& title, void (*use)(QWidget*, report::ReportSheets&));
  void takeSourceFile(const QString& name);
  bool acceptDrop(QDropEvent* event, selection::Side side);
  void dropFile(selection::Side side, const QString& name);
  template <typename Dialog>
  void openOptions();
  void openProject();
  void openHelp();

  void schedulePreview();
  void showPreview();
  selection::SuggestionTools suggestionTools();
  const std::vector<PlanArea>& shownAreas(std::int16_t source, std::int16_t target);
  QString withoutPreview() const;
  void takeSuggestion(const selection::Suggestion& suggestion);
  void followSourceLayout();

  // Jobs.
  void connectJobs();
  void beginJob();
  void resumeJob(const selection::Job& job);
  void openJob();
  void openJobFile(const QString& name);
  bool saveJob();
  bool saveJobAs();
  bool mayLeaveJob();
  void copyCommand();
  text::Result<std::string> jobTextNow();
  run::RunSettings settingsForJob();
  bool jobChanged();
  void keepJob(const QString& name);
  void showJobTitle();
  void takeLayouts();

  void execute();
  bool showProgress(const run::Reached& reached);
  void lookBack(FinishedRun& run, run::PointSample& sample);
  void connectResult();
  void openTarget();
  void openRunReport();
  void saveList(const QString& text);
  void setRunning(bool running);
  const run::SideSettings& settingsOf(selection::Side side);

  const app::WindowStart& start_;
  run::ConversionEngine& engine_;
  selection::Selections selections_;
  formats::delimited::DefinedFormats delimitedFormats_;
  std::unique_ptr<Ui::frmTovak> form_;
  std::array<SideWidgets, 2> sides_;
  QString folder_;  ///< where file dialogs open
  std::unique_ptr<HelpWindow> help_;
  std::set<std::string> ownTargets_;  ///< written by this window, or the person agreed to replace them
  QString jobFile_;                   ///< of the open job; empty without one
  std::string keptJob_;               ///< the text of the selections when it was opened or saved
  bool running_ = false;
  bool stopWanted_ = false;
  std::vector<selection::Suggestion> suggestions_;  ///< for the selections as they are; empty while they change
  std::unique_ptr<FinishedRun> lastRun_;
  run::RunSettings afterRun_;    ///< the selections as the last run left them
  bool unusualOptions_ = false;  ///< whether options or report were unusual when they were last looked at
  QTimer previewTimer_;
  std::vector<PlanArea> shownAreas_;  ///< in the plan, with these codes as source and target
  std::pair<std::int16_t, std::int16_t> shownCodes_;
};

}  // namespace tovak::ui
