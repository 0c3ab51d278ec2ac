// Shows each window of the program and keeps a picture of it: tovak_screenshots HELP_FILE FOLDER [--dark]
// docs/screenshots builds and runs it.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPalette>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPushButton>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <memory>

#include "formats/delimited/built_in_formats.h"
#include "formats/format_tables.h"
#include "report/report_writer.h"
#include "run/conversion_run.h"
#include "run/engine_loader.h"
#include "run/format_index.h"
#include "run/module_loader.h"
#include "run/usual_areas.h"
#include "selection/selections.h"
#include "ui/help_window.h"
#include "ui/report_preview.h"
#include "ui/system_list.h"
#include "ui/tovak.h"
#include "ui/tovak_about.h"
#include "ui/tovak_com_del.h"
#include "ui/tovak_def_pt_no.h"
#include "ui/tovak_delorme.h"
#include "ui/tovak_input.h"
#include "ui/tovak_maptech.h"
#include "ui/tovak_output.h"
#include "ui/tovak_project.h"
#include "ui/tovak_wpt_txt.h"

namespace {

using tovak::ui::HelpWindow;

struct Picture {
  const char* name;  ///< of the file, without its ending
  std::unique_ptr<QWidget> (*make)(const QString& helpFile);
};

std::unique_ptr<QWidget> makeHelp(const QString& helpFile, const QString& topic) {
  auto window = std::make_unique<HelpWindow>(helpFile);
  QString problem;
  if (!window->open(&problem)) {
    std::fprintf(stderr, "%s\n", qPrintable(problem));
    return nullptr;
  }
  if (!topic.isEmpty()) window->showTopic(topic);
  return window;
}

/// The selections that the pictures show: the sample on its way to state plane South.
tovak::run::RunSettings& exampleSettings() {
  static tovak::run::RunSettings settings = [] {
    tovak::run::RunSettings example;
    example.sourceFormat = tovak::run::source::CommaDelimited;
    example.targetFormat = tovak::run::target::CommaDelimited;
    example.TargetProjectionCode = 4;
    example.latLongForm = tovak::text::AngleForm::DecimalDegrees;
    example.source.fileName = "samples/control.csv";
    example.target.fileName = "control_south.csv";
    return example;
  }();
  return settings;
}

tovak::run::ConversionEngine* engine() {
  static const tovak::run::EngineResult result = tovak::run::createEngine(tovak::run::kEngineIdentifier);
  return result.engine.get();
}

std::unique_ptr<tovak::ui::frmTovak> makeMain(const tovak::run::RunSettings& settings) {
  static tovak::app::WindowStart start;  // outlives the window
  start.settings = settings;
  start.engine = engine();
  start.formatTables = tovak::formats::formatTables();
  static const auto areas = tovak::run::readUsualAreas(tovak::run::dataFile("areas.txt"));
  if (areas) start.formatTables.areas = &*areas;
  start.delimitedFormats = {tovak::formats::delimited::standardFormat()};
  start.version = "1.0.0";
  return std::make_unique<tovak::ui::frmTovak>(start);
}

/// The points on the plan.
std::unique_ptr<QWidget> makePlan() {
  std::unique_ptr<tovak::ui::frmTovak> window = makeMain(exampleSettings());
  window->findChild<QTabWidget*>("previewTabs")->setCurrentIndex(1);
  return window;
}

/// A run with everything there is to tell: refused and doubtful points, and lines that hold none.
std::unique_ptr<QWidget> makeResult() {
  static const QTemporaryDir folder;
  tovak::run::RunSettings settings = exampleSettings();
  settings.reportEnabled = false;
  settings.source.fileName = folder.filePath("control.csv").toStdString();
  settings.target.fileName = folder.filePath("control_south.csv").toStdString();
  QFile::copy("samples/control.csv", folder.filePath("control.csv"));
  QFile source(folder.filePath("control.csv"));
  source.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
  if (!source.open(QFile::Append)) return nullptr;
  source.write(
      "Points of the second day\n45.913x,-92.781,Bridge 7,207,301.5\n12.5,-93.2,Pole,208,\n95.1,-93.2,Pole,209,\n");
  source.close();
  std::unique_ptr<tovak::ui::frmTovak> window = makeMain(settings);
  window->show();
  if (!QTest::qWaitForWindowExposed(window.get())) return nullptr;
  QTimer acknowledge;
  QObject::connect(&acknowledge, &QTimer::timeout, [] {
    if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) box->accept();
  });
  acknowledge.start(0);
  window->findChild<QPushButton*>("cmdExecute")->click();
  return window;
}

/// Options and report unfolded, as they are when one of them is not as usual.
std::unique_ptr<QWidget> makeMore() {
  tovak::run::RunSettings settings = exampleSettings();
  settings.adjustment = tovak::run::Adjustment::Nad83_2011;
  return makeMain(settings);
}

/// The sample's angles read in the wrong form.
std::unique_ptr<QWidget> makeSuggestions() {
  tovak::run::RunSettings settings = exampleSettings();
  settings.latLongForm = tovak::text::AngleForm::DegreesMinutesSeconds;
  std::unique_ptr<tovak::ui::frmTovak> window = makeMain(settings);
  window->findChild<QCheckBox*>("chkTargetText")->setChecked(true);
  return window;
}

/// A format of the user's own, in the form for the side that the purpose names.
std::unique_ptr<QWidget> makeEditor(tovak::formats::delimited::EditorPurpose purpose) {
  static tovak::formats::delimited::DefinedFormats formats = {
      .table = {tovak::formats::delimited::standardFormat(),
                {.name = "Control points",
                 .fieldCodes = " 0~ 1~ 2~ 3~ 4~",
                 .headerLine = "Y Coordinate,X Coordinate,Point Name,Point Number,Elevation,",
                 .includeHeader = true}},
      .chosenSource = 1,
      .chosenTarget = 1};
  formats.saved = formats.table;
  return std::make_unique<tovak::ui::frmTovakComDel>(formats, purpose, exampleSettings(), "Tovak.cdf");
}

/// The main window on a county of the geodetic database; the question about its map sheets is answered with yes.
std::unique_ptr<QWidget> makeDatabase() {
  tovak::run::RunSettings settings = exampleSettings();
  settings.sourceFormat = tovak::run::source::GeodeticCsv;
  settings.source.fileName = "samples/ALDR1.csv";
  std::unique_ptr<tovak::ui::frmTovak> window = makeMain(settings);
  window->show();
  if (!QTest::qWaitForWindowExposed(window.get())) return nullptr;
  QTimer::singleShot(0, [] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box != nullptr) box->button(QMessageBox::Yes)->click();
  });
  window->completeStart();
  if (auto* const list = window->findChild<QComboBox*>("lstHorizontal")) emit list->textActivated("NAD83(2011) ADJ.");
  return window;
}

tovak::run::PointRecord examplePoint() {
  tovak::run::PointRecord point;
  point.pointNumber = "101";
  point.description = "Alder Bridge";
  point.InNorthLat = 48.946947603;
  point.InEastLon = -95.790044250;
  point.Elevation = 912.482;
  engine()->TovakVert(point.InNorthLat, point.InEastLon, point.Elevation, "0", point.OutNorthLat, point.OutEastLon,
                      point.Elevation, "4", point.OutInfo);
  return point;
}

std::unique_ptr<QWidget> makeOutput() {
  auto grid = std::make_unique<tovak::ui::frmTovakOutput>(exampleSettings());
  grid->setDescriptions("Latitude and Longitude, NAD83 : NAD83", "State plane South, NAD83 : NAD83");
  grid->startGrid();
  grid->addRow(examplePoint());
  return grid;
}

/// A report of the sample's points.
std::unique_ptr<QWidget> makeReport() {
  class Silent final : public tovak::run::Person {
    void show(const tovak::run::Message& /*message*/) override {}
    bool confirm(const tovak::run::Message& /*question*/) override { return true; }
    bool leaveBatchMode() override { return true; }
    bool chooseTargetOptions(tovak::run::TargetOptions /*options*/) override { return true; }
  };
  static const QTemporaryDir folder;
  tovak::run::FormatTables tables = tovak::formats::formatTables();
  tovak::run::RunSettings settings = exampleSettings();
  settings.targetFormat = tovak::run::target::ScreenOnly;
  settings = tovak::selection::runSettings(tovak::selection::selectionsFrom(settings, tables), tables);
  settings.sourceDelimited = tovak::formats::delimited::standardFormat();
  settings.reportEnabled = true;
  settings.reportFileName = folder.filePath("Tovak11-21-2026.rpt").toStdString();
  tables.report = {tovak::report::makeReportWriter, "1.0.0", [] { return tovak::text::Date{2026, 11, 21}; }};
  Silent person;
  tovak::run::convert(settings, *engine(), tables, {.person = person});
  static tovak::report::ReportSheets sheets(settings.reportFileName);
  static QPrinter printer(QPrinter::HighResolution);
  if (!sheets.open()) return nullptr;
  return std::make_unique<tovak::ui::frmTovakReport>(printer, sheets, nullptr);
}

template <typename Dialog>
std::unique_ptr<QWidget> makeOptions() {
  return std::make_unique<Dialog>(exampleSettings(), nullptr);
}

// One line for each window. A form is made, filled with an example and returned; the code below shows it and saves the
// picture.
constexpr Picture kPictures[] = {
    {"main", [](const QString&) -> std::unique_ptr<QWidget> { return makeMain(exampleSettings()); }},
    {"main_more", [](const QString&) { return makeMore(); }},
    {"main_plan", [](const QString&) { return makePlan(); }},
    {"main_result", [](const QString&) { return makeResult(); }},
    {"main_suggestions", [](const QString&) { return makeSuggestions(); }},
    {"main_database", [](const QString&) { return makeDatabase(); }},
    {"systems",
     [](const QString&) -> std::unique_ptr<QWidget> {
       return std::make_unique<tovak::ui::frmTovakSystems>(*engine(), exampleSettings().TargetProjectionCode, "county",
                                                           nullptr);
     }},
    {"keyboard",
     [](const QString&) -> std::unique_ptr<QWidget> {
       auto dialog = std::make_unique<tovak::ui::frmTovakInput>(
           tovak::ui::entryLabels(exampleSettings(), "Latitude and Longitude, NAD83"));
       dialog->findChild<QLineEdit*>("txtPointNumber")->setText("101");
       dialog->findChild<QLineEdit*>("txtLatNorthY")->setText("48.946947603");
       dialog->findChild<QLineEdit*>("txtLongEastX")->setText("-95.790044250");
       dialog->showResult(tovak::ui::entryResult(examplePoint(), exampleSettings(), "State plane South, NAD83"));
       return dialog;
     }},
    {"output", [](const QString&) { return makeOutput(); }},
    {"report_preview", [](const QString&) { return makeReport(); }},
    {"delimited_formats",
     [](const QString&) { return makeEditor(tovak::formats::delimited::EditorPurpose::InputFile); }},
    {"numbering", [](const QString&) { return makeOptions<tovak::ui::frmTovakDefPtNo>(); }},
    {"project",
     [](const QString&) -> std::unique_ptr<QWidget> {
       auto dialog = std::make_unique<tovak::ui::frmTovakProject>(*engine());
       dialog->findChild<QLineEdit*>("txtProjectName")->setText("Alder Bridge");
       dialog->findChild<QPlainTextEdit*>("txtDefinition")
           ->setPlainText("+proj=tmerc +lat_0=45 +lon_0=-93.5 +k=1.00004 +x_0=30000 +y_0=20000 +ellps=GRS80");
       return dialog;
     }},
    {"waypoints", [](const QString&) { return makeOptions<tovak::ui::frmTovakWptTxt>(); }},
    {"maptech", [](const QString&) { return makeOptions<tovak::ui::frmTovakMaptech>(); }},
    {"delorme", [](const QString&) { return makeOptions<tovak::ui::frmTovakDelorme>(); }},
    {"about", [](const QString&) -> std::unique_ptr<QWidget> { return std::make_unique<tovak::ui::frmTovakAbout>(); }},
    {"help", [](const QString& file) { return makeHelp(file, {}); }},
    {"help_format", [](const QString& file) { return makeHelp(file, "t-bluebook"); }},
};

QPalette darkPalette() {
  const QColor window(45, 45, 48);
  QPalette palette(QColor(60, 60, 64), window);
  palette.setColor(QPalette::Base, QColor(30, 30, 32));
  palette.setColor(QPalette::AlternateBase, QColor(52, 52, 56));
  palette.setColor(QPalette::Link, QColor(110, 170, 255));
  palette.setColor(QPalette::LinkVisited, QColor(180, 150, 255));
  palette.setColor(QPalette::Highlight, QColor(45, 110, 190));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  return palette;
}

bool keep(const Picture& picture, const QString& helpFile, const QDir& folder) {
  const std::unique_ptr<QWidget> window = picture.make(helpFile);
  if (window == nullptr) return false;
  window->show();
  if (!QTest::qWaitForWindowExposed(window.get())) return false;
  QCoreApplication::processEvents();
  const QString file = folder.filePath(QString(picture.name) + ".png");
  if (!window->grab().save(file)) {
    std::fprintf(stderr, "%s cannot be written.\n", qPrintable(file));
    return false;
  }
  std::printf("%s\n", qPrintable(file));
  return true;
}

}  // namespace

int main(int count, char** values) {
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  const QApplication application(count, values);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 3) {
    std::fprintf(stderr, "tovak_screenshots HELP_FILE FOLDER [--dark]\n");
    return 2;
  }
  if (arguments.contains("--dark")) QApplication::setPalette(darkPalette());
  const QDir folder(arguments[2]);
  if (!folder.mkpath(".")) {
    std::fprintf(stderr, "%s cannot be made.\n", qPrintable(folder.path()));
    return 1;
  }
  for (const Picture& picture : kPictures) {
    if (!keep(picture, arguments[1], folder)) return 1;
  }
  return 0;
}
