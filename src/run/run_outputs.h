/// Everything that the points of a run go to: the target file, the report and the output grid.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "run/conversion_engine.h"
#include "run/formats.h"
#include "run/person.h"
#include "run/report_heading.h"
#include "run/run_settings.h"
#include "text/line_writer.h"

namespace tovak::run {

/// Each operation returns false when a file failed; `error()` then says why, and neither file is replaced any more.
class RunOutputs {
 public:
  RunOutputs(const RunSettings& settings, const FormatTables& formats, Person& person);
  RunOutputs(const RunOutputs&) = delete;
  RunOutputs& operator=(const RunOutputs&) = delete;
  ~RunOutputs() = default;

  /// Opens the target and, when reports are enabled, the report, and writes what stands before the first point.
  bool open(ConversionEngine& engine);
  bool write(const PointRecord& point);
  /// Tells the report of a point that was not converted.
  bool writeRefused(const PointRecord& point, std::string_view reason);
  /// Ends both files and gives them their names, once nothing more can be wrong with either. `complete`: the target
  /// gets its closing line too.
  bool finish(bool complete);

  /// Where the target's lines go that are no points.
  text::LineWriter& targetLines() { return targetLines_; }
  /// The report's head, and where in its file the report of this run begins.
  const ReportHeading& heading() const { return heading_; }
  std::uint64_t reportStart() const { return reportLines_.start(); }
  const std::string& error() const {
    return targetLines_.error().empty() ? reportLines_.error() : targetLines_.error();
  }

 private:
  bool writesFile() const { return target_.kind == TargetKind::File; }
  bool writesReport() const { return settings_.reportEnabled && reportFormat_.makeWriter != nullptr; }
  bool openTarget(ConversionEngine& engine);
  bool openReport(ConversionEngine& engine);
  bool endTarget(bool complete);
  bool startsFreshGrid();

  const RunSettings& settings_;
  const TargetFormat& target_;
  const ReportFormat reportFormat_;
  Person& person_;

  text::LineWriter targetLines_;
  std::unique_ptr<PointWriter> targetWriter_;
  ReportHeading heading_;
  text::LineWriter reportLines_;
  std::unique_ptr<PointWriter> reportWriter_;
  int gridRows_ = -1;
};

}  // namespace tovak::run
