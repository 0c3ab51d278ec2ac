#include "ui/window_person.h"

#include <QApplication>
#include <optional>
#include <string_view>
#include <utility>

#include "run/labels.h"
#include "run/projection_code.h"
#include "run/run_messages.h"
#include "run/system_data.h"
#include "ui/message_box.h"
#include "ui/qt_text.h"
#include "ui/report_printing.h"

namespace tovak::ui {
namespace {

/// The progress is painted, and the person heard, at most ten times a second.
constexpr qint64 kPaintInterval = 100;

/// The ordinary pointer while a dialog of the run is open.
template <typename Dialog>
bool execDialog(Dialog& dialog) {
  QApplication::setOverrideCursor(Qt::ArrowCursor);
  const bool accepted = dialog.exec() == QDialog::Accepted;
  QApplication::restoreOverrideCursor();
  return accepted;
}

template <typename Dialog>
bool execOptions(run::RunSettings& settings, QWidget& window) {
  Dialog dialog(settings, &window);
  return execDialog(dialog);
}

}  // namespace

WindowPerson::WindowPerson(QWidget& window, run::RunSettings& settings, run::ConversionEngine& engine,
                           Knowledge knowledge, ShowProgress showProgress)
    : window_(window),
      settings_(settings),
      engine_(engine),
      knowledge_(std::move(knowledge)),
      showProgress_(std::move(showProgress)) {
  sincePaint_.start();
}

WindowPerson::~WindowPerson() = default;

void WindowPerson::show(const run::Message& message) {
  if (message.ofOnePoint && !pointMessages_) return;
  focus_ = message.focus;
  run::Message shown = message;
  if (message.mayStop && !knowledge_.suggestion.isEmpty()) {
    shown.detail += "\nThis may help: " + knowledge_.suggestion.toStdString();
  }
  const Acknowledgement answer = showMessage(&window_, shown);
  pointMessages_ = pointMessages_ && answer != Acknowledgement::NoMoreOfThem;
  stopped_ = stopped_ || answer == Acknowledgement::Stop;
}

bool WindowPerson::confirm(const run::Message& question) {
  return askQuestion(&window_, question);
}

bool WindowPerson::mayReplace(const std::string& fileName) {
  if (knowledge_.ownTargets.contains(fileName)) return true;
  const run::Message question = run::messages::replaceTarget(fileName);
  focus_ = question.focus;
  return confirm(question);
}

bool WindowPerson::chooseTargetOptions(run::TargetOptions options) {
  switch (options) {
    case run::TargetOptions::None:
      return true;
    case run::TargetOptions::DeLorme:
      return execOptions<frmTovakDelorme>(settings_, window_);
    case run::TargetOptions::Maptech:
      return execOptions<frmTovakMaptech>(settings_, window_);
    case run::TargetOptions::TrimbleWaypoints:
      return execOptions<frmTovakWptTxt>(settings_, window_);
  }
  return true;
}

QString WindowPerson::sideDescription(std::int16_t code) const {
  return toQString(run::systemName(engine_, code)) + " : " + toQString(run::datumLabel(settings_, code));
}

bool WindowPerson::typePoint(run::PointRecord& point) {
  // The person sees the previous point before being asked for the next one.
  if (std::exchange(rowsToShow_, false)) execDialog(grid());
  if (entry_ == nullptr)
    entry_ = std::make_unique<frmTovakInput>(
        entryLabels(settings_, toQString(run::systemName(engine_, settings_.SourceProjectionCode))), &window_);
  while (execDialog(*entry_)) {
    const bool latLong = run::isLatLong(settings_.SourceProjectionCode);
    std::string_view faultyBox;
    text::Result<run::PointRecord> typed = run::typedPoint(entry_->texts(), latLong, settings_.latLongForm, &faultyBox);
    if (typed) {
      point = std::move(*typed);
      return true;
    }
    showMessage(entry_.get(),
                {.text = typed.error, .title = entry_->windowTitle().toStdString(), .icon = run::Icon::Exclamation});
    entry_->beginAt(faultyBox);
  }
  return false;
}

frmTovakOutput& WindowPerson::grid() {
  if (grid_ == nullptr) {
    grid_ = std::make_unique<frmTovakOutput>(settings_, &window_);
    grid_->setDescriptions(sideDescription(settings_.SourceProjectionCode),
                           sideDescription(settings_.TargetProjectionCode));
  }
  return *grid_;
}

void WindowPerson::showRow(const run::PointRecord& point, bool freshGrid) {
  if (freshGrid) grid().startGrid();
  grid().addRow(point);
  if (entry_ != nullptr) {
    entry_->showResult(
        entryResult(point, settings_, toQString(run::systemName(engine_, settings_.TargetProjectionCode))));
  }
  rowsToShow_ = true;
}

void WindowPerson::printReport(const run::ReportHeading& heading, std::uint64_t start) {
  report::ReportSheets sheets(settings_.reportFileName, start, heading);
  QApplication::setOverrideCursor(Qt::ArrowCursor);
  ui::printReport(&window_, sheets);
  QApplication::restoreOverrideCursor();
}

void WindowPerson::showGrid() {
  execDialog(grid());
}

bool WindowPerson::progress(const run::Reached& reached) {
  if (stopped_ || sincePaint_.elapsed() < kPaintInterval) return !stopped_;
  stopped_ = !showProgress_(reached);
  sincePaint_.restart();
  return !stopped_;
}

}  // namespace tovak::ui
