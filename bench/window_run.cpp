/// bench_window_run POINTS ROUNDS
///
/// Converts the delimited file POINTS (latitude and longitude in decimal degrees) to state plane South into the current
/// folder, alternately by a batch run and by pressing Execute in the main window, with reports suppressed and with a
/// report, ROUNDS times each. Prints on one line the three median wall clock times in seconds, for batch, window and
/// window with a report, and then the three median processor times in the same order.
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <vector>

#include "app/console_person.h"
#include "formats/delimited/built_in_formats.h"
#include "formats/format_tables.h"
#include "report/report_writer.h"
#include "run/conversion_run.h"
#include "run/engine_loader.h"
#include "run/format_index.h"
#include "ui/tovak.h"

namespace {

namespace app = tovak::app;
namespace formats = tovak::formats;
namespace report = tovak::report;
namespace run = tovak::run;
namespace text = tovak::text;
namespace ui = tovak::ui;

run::RunSettings settingsFor(const char* points) {
  run::RunSettings settings;
  settings.sourceFormat = run::source::CommaDelimited;
  settings.targetFormat = run::target::CommaDelimited;
  settings.sourceDelimited = settings.targetDelimited = formats::delimited::standardFormat();
  settings.TargetProjectionCode = 4;
  settings.source.projectionText = "0";
  settings.target.projectionText = "4";
  settings.latLongForm = text::AngleForm::DecimalDegrees;
  settings.reportEnabled = false;
  settings.reportFileName = "window_run.rpt";
  settings.source.fileName = points;
  settings.target.fileName = "window_run.csv";
  return settings;
}

/// The rounds of one kind of run.
struct Rounds {
  std::vector<double> wallSeconds;
  std::vector<double> cpuSeconds;

  template <typename Work>
  void add(const Work& work) {
    const auto start = std::chrono::steady_clock::now();
    const std::clock_t cpuStart = std::clock();
    work();
    cpuSeconds.push_back(static_cast<double>(std::clock() - cpuStart) / CLOCKS_PER_SEC);
    wallSeconds.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
};

double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

}  // namespace

int main(int count, char** values) {
  if (count != 3) return 2;
  const QApplication application(count, values);
  const run::EngineResult engine = run::createEngine(run::kEngineIdentifier);
  if (engine.engine == nullptr) {
    std::cerr << engine.reason << std::endl;
    return 1;
  }

  app::WindowStart start;
  start.settings = settingsFor(values[1]);
  start.engine = engine.engine.get();
  start.formatTables = formats::formatTables();
  start.delimitedFormats = {formats::delimited::standardFormat()};
  start.formatTables.report = {.makeWriter = report::makeReportWriter, .version = "1.0.0", .today = text::today};
  ui::frmTovak window(start);
  window.show();

  // The message at the end of a window's run is acknowledged as soon as it appears.
  QTimer acknowledge;
  QObject::connect(&acknowledge, &QTimer::timeout, [] {
    if (auto* const box = qobject_cast<QDialog*>(QApplication::activeModalWidget())) box->accept();
  });
  acknowledge.start(1);

  auto* const execute = window.findChild<QPushButton*>("cmdExecute");
  auto* const suppress = window.findChild<QCheckBox*>("ChkSuppress");
  // Without files of an earlier round, no question is asked about them, and all reports have the same length.
  const auto removeFiles = [&start] {
    for (const std::string& name : {start.settings.target.fileName, start.settings.reportFileName})
      std::filesystem::remove(name);
  };
  const auto press = [execute] { execute->click(); };
  Rounds batch;
  Rounds byWindow;
  Rounds withReport;
  for (int round = std::atoi(values[2]); round > 0; --round) {
    removeFiles();
    batch.add([&] {
      run::RunSettings settings = start.settings;
      settings.BatchMode = 2;
      app::ConsolePerson person(std::cerr, false, false);
      run::convert(settings, *engine.engine, start.formatTables, {.person = person});
    });
    removeFiles();
    byWindow.add(press);
    suppress->click();
    removeFiles();
    withReport.add(press);
    suppress->click();
  }
  removeFiles();
  for (const Rounds* rounds : {&batch, &byWindow, &withReport}) std::printf("%.6f ", median(rounds->wallSeconds));
  for (const Rounds* rounds : {&batch, &byWindow, &withReport}) std::printf("%.6f ", median(rounds->cpuSeconds));
  std::printf("\n");
  return 0;
}
