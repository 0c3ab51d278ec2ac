#include "run/run_outputs.h"

#include <cstddef>

#include "run/identification.h"
#include "run/labels.h"
#include "run/system_data.h"
#include "text/target_file.h"

namespace tovak::run {
namespace {

/// The engine's name of one side's system, else its projection text.
std::string nameOf(ConversionEngine& engine, std::int16_t code, const SideSettings& side) {
  std::string name = systemName(engine, code);
  return name.empty() ? side.projectionText : name;
}

/// The same, but a project by its own name.
std::string fullNameOf(ConversionEngine& engine, std::int16_t code, const SideSettings& side) {
  return side.displayName.empty() ? nameOf(engine, code, side) : side.displayName;
}

std::string sideHeading(ConversionEngine& engine, const RunSettings& settings, std::int16_t code,
                        const SideSettings& side) {
  return std::string(datumLabel(settings, code)) + ' ' + fullNameOf(engine, code, side);
}

}  // namespace

RunOutputs::RunOutputs(const RunSettings& settings, const FormatTables& formats, DoubtFlags& doubts, Screen* screen)
    : settings_(settings),
      target_(formats.targets[static_cast<std::size_t>(settings.targetFormat)]),
      typed_(formats.sources[static_cast<std::size_t>(settings.sourceFormat)].kind == SourceKind::Keyboard),
      reportFormat_(formats.report),
      doubts_(doubts),
      screen_(screen) {}

bool RunOutputs::open(ConversionEngine& engine) {
  if (writesFile() && !(targetLines_.open(settings_.target.fileName) && beginTarget(engine))) return false;
  return openReport(engine);
}

bool RunOutputs::openText(ConversionEngine& engine, std::string& text) {
  targetLines_.openText(text);
  return !writesFile() || beginTarget(engine);
}

bool RunOutputs::beginTarget(ConversionEngine& engine) {
  targetWriter_ =
      target_.makeWriter({.lines = targetLines_,
                          .settings = settings_,
                          .doubts = doubts_,
                          .targetSystem = nameOf(engine, settings_.TargetProjectionCode, settings_.target),
                          .sourceSystem = fullNameOf(engine, settings_.SourceProjectionCode, settings_.source),
                          .today = today()});
  if (!target_.ownBeginning && !targetLines_.writeLine(identificationLine(settings_))) return false;
  return targetWriter_->begin();
}

bool RunOutputs::openReport(ConversionEngine& engine) {
  if (!writesReport()) return true;
  using Way = text::TargetFile::Way;
  if (!reportLines_.open(settings_.reportFileName, settings_.appendReport ? Way::Append : Way::Replace,
                         reportFormat_.joint)) {
    return false;
  }
  heading_ = {
      .version = std::string(reportFormat_.version),
      .date = reportFormat_.today(),
      .source = sideHeading(engine, settings_, settings_.SourceProjectionCode, settings_.source),
      .target = sideHeading(engine, settings_, settings_.TargetProjectionCode, settings_.target),
  };
  reportWriter_ = reportFormat_.makeWriter({.lines = reportLines_, .settings = settings_, .heading = heading_});
  return reportWriter_->begin();
}

/// The grid keeps the most recent points only: every thousandth starts it afresh.
bool RunOutputs::startsFreshGrid() {
  ++gridRows_;
  const bool fresh = gridRows_ % 1000 == 0;
  if (fresh) gridRows_ = 1;
  return fresh;
}

bool RunOutputs::write(const PointRecord& point) {
  anyPoint_ = true;
  if (targetWriter_ != nullptr && !targetWriter_->write(point)) return false;
  if (reportWriter_ != nullptr && !reportWriter_->write(point)) return false;
  if (screen_ != nullptr && showsPoints()) screen_->showRow(point, startsFreshGrid());
  return true;
}

bool RunOutputs::writeRefused(const PointRecord& point, std::string_view reason) {
  return reportWriter_ == nullptr || reportWriter_->writeRefused(point, reason);
}

bool RunOutputs::endTarget(bool complete) {
  if (targetWriter_ == nullptr) return true;
  if (!targetWriter_->end()) return false;
  if (complete && !target_.closingLine.empty() && !targetLines_.writeLine(target_.closingLine)) return false;
  return targetLines_.finish();
}

bool RunOutputs::finish(bool complete) {
  if (!endTarget(complete)) return false;
  if (reportWriter_ != nullptr && !(reportWriter_->end() && reportLines_.finish())) return false;
  // A report describes its target, so it must not exist without it.
  if (targetWriter_ != nullptr && !nameTarget()) return false;
  if (reportWriter_ == nullptr) return true;
  reportWritten_ = reportLines_.commit();
  return reportWritten_;
}

bool RunOutputs::nameTarget() {
  if (!anyPoint_ && targetLines_.target().hasOlder()) {
    targetLines_.discard();
    return true;
  }
  targetNamed_ = targetLines_.commit();
  return targetNamed_;
}

TargetState RunOutputs::targetState() const {
  if (targetWriter_ == nullptr) return TargetState::NotOpened;
  if (targetNamed_) return TargetState::Written;
  if (targetLines_.target().isDirect()) return TargetState::Incomplete;
  return targetLines_.target().hasOlder() ? TargetState::OlderKept : TargetState::NoFile;
}

}  // namespace tovak::run
