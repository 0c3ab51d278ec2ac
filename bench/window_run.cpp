/// bench_window_run POINTS ROUNDS
///
/// Converts the delimited file POINTS (latitude and longitude in decimal degrees) to state plane South into the current
/// folder, in turns by a batch run and by pressing Execute in the main window with reports suppressed and with a
/// report, ROUNDS times each. Prints the median wall clock times in seconds on one line: batch, window, window with a
/// report.
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <vector>

#include "app/console_person.h"
#include "formats/delimited/built_in_formats.h"
#include "formats/format_tables.h"
#include "report/report_writer.h"
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
  settings.sourceDelimited = settings.targetDelimited = formats::standardFormat();
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

template <typename Work>
double secondsOf(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

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
  start.delimitedFormats = {formats::standardFormat()};
  start.formatTables.report = {.makeWriter = report::makeReportWriter, .version = "1.0.0", .today = text::today};
  ui::frmTovak window(start);
  window.show();

  // The message at the end of a window's run is acknowledged as soon as it is there.
  QTimer acknowledge;
  QObject::connect(&acknowledge, &QTimer::timeout, [] {
    if (auto* const box = qobject_cast<QDialog*>(QApplication::activeModalWidget())) box->accept();
  });
  acknowledge.start(1);

  auto* const execute = window.findChild<QPushButton*>("cmdExecute");
  auto* const suppress = window.findChild<QCheckBox*>("ChkSuppress");
  std::vector<double> batch;
  std::vector<double> byWindow;
  std::vector<double> withReport;
  for (int round = std::atoi(values[2]); round > 0; --round) {
    batch.push_back(secondsOf([&] {
      run::RunSettings settings = start.settings;
      settings.BatchMode = 2;
      app::ConsolePerson person(std::cerr, false, false);
      run::convert(settings, *engine.engine, start.formatTables, person);
    }));
    byWindow.push_back(secondsOf([&] { execute->click(); }));
    suppress->click();
    withReport.push_back(secondsOf([&] { execute->click(); }));
    suppress->click();
  }
  std::printf("%.6f %.6f %.6f\n", median(batch), median(byWindow), median(withReport));
  return 0;
}
