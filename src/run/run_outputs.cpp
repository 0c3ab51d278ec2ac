#include "run/run_outputs.h"

#include <cstddef>

#include "run/labels.h"
#include "text/target_file.h"

namespace tovak::run {
namespace {

/// The engine's name of one side's system, else its projection text.
std::string systemName(ConversionEngine& engine, std::int16_t code, const SideSettings& side) {
  const std::string data = engine.GetProjectionData(code);
  return data.empty() ? side.projectionText : data.substr(0, data.find('~'));
}

std::string sideHeading(ConversionEngine& engine, std::int16_t code, const SideSettings& side, Adjustment adjustment) {
  const std::string& name = side.displayName;  // of a project
  return std::string(datumLabel(code, adjustment)) + ' ' + (name.empty() ? systemName(engine, code, side) : name);
}

}  // namespace

RunOutputs::RunOutputs(const RunSettings& settings, const FormatTables& formats, Person& person)
    : settings_(settings),
      target_(formats.targets[static_cast<std::size_t>(settings.targetFormat)]),
      reportFormat_(formats.report),
      person_(person) {}

bool RunOutputs::open(ConversionEngine& engine) {
  return openTarget(engine) && openReport(engine);
}

bool RunOutputs::openTarget(ConversionEngine& engine) {
  if (!writesFile()) return true;
  if (!targetLines_.open(settings_.target.fileName)) return false;
  targetWriter_ =
      target_.makeWriter({.lines = targetLines_,
                          .settings = settings_,
                          .targetSystem = systemName(engine, settings_.TargetProjectionCode, settings_.target)});
  return targetLines_.writeLine(identificationLine(settings_)) && targetWriter_->begin();
}

bool RunOutputs::openReport(ConversionEngine& engine) {
  if (!writesReport()) return true;
  using Way = text::TargetFile::Way;
  if (!reportLines_.open(settings_.reportFileName, settings_.appendReport ? Way::Append : Way::Replace)) return false;
  heading_ = {
      .version = std::string(reportFormat_.version),
      .date = reportFormat_.today(),
      .source = sideHeading(engine, settings_.SourceProjectionCode, settings_.source, settings_.adjustment),
      .target = sideHeading(engine, settings_.TargetProjectionCode, settings_.target, settings_.adjustment),
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
  if (targetWriter_ != nullptr && !targetWriter_->write(point)) return false;
  if (reportWriter_ != nullptr && !reportWriter_->write(point)) return false;
  const bool intoGrid = target_.kind == TargetKind::Screen || settings_.reportEnabled;
  if (intoGrid) person_.showRow(point, startsFreshGrid());
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
  if (reportWriter_ != nullptr && !(reportWriter_->end() && reportLines_.commit())) return false;
  return targetWriter_ == nullptr || targetLines_.commit();
}

}  // namespace tovak::run
