// The main window during and after a run: its progress, and what can be done with its result.
#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>
#include <algorithm>
#include <optional>
#include <vector>

#include "run/place.h"
#include "run/run_messages.h"
#include "text/target_file.h"
#include "ui/ask_for_file.h"
#include "ui/message_box.h"
#include "ui/preview_panel.h"
#include "ui/qt_text.h"
#include "ui/report_printing.h"
#include "ui/tovak.h"
#include "ui_tovak.h"

namespace tovak::ui {

void frmTovak::connectResult() {
  connect(form_->cmdStop, &QPushButton::clicked, this, [this] { stopWanted_ = true; });
  const ResultPanel& result = form_->preview->result();
  connect(&result, &ResultPanel::targetWanted, this, &frmTovak::openTarget);
  connect(&result, &ResultPanel::reportWanted, this, &frmTovak::openRunReport);
  connect(&result, &ResultPanel::gridWanted, this, [this] { lastRun_->grid->exec(); });
  connect(&result, &ResultPanel::listToSave, this, &frmTovak::saveList);
}

/// All controls but the one that stops the run are disabled, so nothing else comes of keys and clicks.
bool frmTovak::showProgress(const run::Reached& reached) {
  QString text = tr("%L1 records").arg(reached.records);
  if (reached.size != 0) {
    constexpr std::uint64_t kWhole = 100;
    const auto percent = static_cast<int>(std::min(kWhole, reached.bytes * kWhole / reached.size));
    form_->prgRun->setRange(0, static_cast<int>(kWhole));
    form_->prgRun->setValue(percent);
    text = tr("%1 %, %2").arg(percent).arg(text);
  }
  form_->lblProgress->setText(text);
  QApplication::processEvents();
  return !stopWanted_;
}

/// Collects what there is to look at after a run.
void frmTovak::lookBack(FinishedRun& run, run::PointSample& sample) {
  run.lines = unconvertedLines(run.result.counts, run.settings);
  engine_.wantResultTexts(false);
  run::PlaceFinder places(engine_, run.settings);
  const std::vector<run::SampledPoint> sampled = sample.take(run.result.counts.doubts);
  if (sampled.size() < sample.all()) run.sampledFrom = sample.all();
  for (const run::SampledPoint& point : sampled) {
    const std::optional<run::Place> place = places.placeOf(point.northing, point.easting);
    if (!place) continue;
    run.points.push_back({.place = *place,
                          .label = toQString(point.number),
                          .state = stateOf(point.fate),
                          .row = static_cast<int>(point.line)});
  }
}

void frmTovak::openTarget() {
  const QFileInfo target(toQString(lastRun_->result.targetName));
  if (!target.exists() || !QDesktopServices::openUrl(QUrl::fromLocalFile(target.absoluteFilePath()))) {
    showMessage(this, {.text = lastRun_->result.targetName + "\ncannot be opened here.",
                       .title = "Target File",
                       .icon = run::Icon::Exclamation});
  }
}

void frmTovak::openRunReport() {
  report::ReportSheets sheets(lastRun_->result.reportName, lastRun_->result.reportStart);
  previewReport(this, sheets);
}

void frmTovak::saveList(const QString& text) {
  const QString name = askForFile(this, tr("Save the List of Lines"), folder_, true, "not converted.txt");
  if (name.isEmpty()) return;
  text::TargetFile file;
  const bool saved = file.open(name.toStdString()) && file.write(text.toStdString()) && file.commit();
  if (!saved) showMessage(this, run::systemMessage(file.error()));
}

}  // namespace tovak::ui
