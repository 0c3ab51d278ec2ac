/// The outputs of a run: the target file, the report and the output grid.
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
#include "run/target_state.h"
#include "text/line_writer.h"

namespace tovak::run {

/// Each operation returns false when a file failed; `error()` then says why, and files without their final name never
/// get it.
class RunOutputs {
 public:
  /// Writers raise what they doubt in `doubts`. Without a screen there is no output grid.
  RunOutputs(const RunSettings& settings, const FormatTables& formats, DoubtFlags& doubts, Screen* screen);
  RunOutputs(const RunOutputs&) = delete;
  RunOutputs& operator=(const RunOutputs&) = delete;
  ~RunOutputs() = default;

  /// Opens the target and, when reports are enabled, the report, and writes what comes before the first point.
  bool open(ConversionEngine& engine);
  /// Opens a text in place of the target file, without a report.
  bool openText(ConversionEngine& engine, std::string& text);
  bool write(const PointRecord& point);
  /// Writes a point that was not converted to the report.
  bool writeRefused(const PointRecord& point, std::string_view reason);
  /// Ends both files, flushes both to the disk, gives the target its name and then the report. An older target stays
  /// when not one point was written. `complete`: the target gets its closing line too.
  bool finish(bool complete);

  /// Ends the target file alone, which gets no name by that.
  bool endTarget(bool complete);

  /// Writes complete lines that are not points to the target.
  bool writeOtherLines(std::string_view lines) { return targetLines_.write(lines); }
  /// Whether the points are shown to a person, in the report or the grid, with the engine's result texts beside them.
  /// Typed points always are: the grid is where the person looks for the result.
  bool showsPoints() const { return typed_ || target_.kind == TargetKind::Screen || settings_.reportEnabled; }
  /// The report's head, and where in its file the report of this run begins.
  const ReportHeading& heading() const { return heading_; }
  std::uint64_t reportStart() const { return reportLines_.target().start(); }
  bool reportWritten() const { return reportWritten_; }
  TargetState targetState() const;
  const std::string& error() const {
    return targetLines_.error().empty() ? reportLines_.error() : targetLines_.error();
  }

 private:
  bool writesFile() const { return target_.kind == TargetKind::File; }
  bool writesReport() const { return settings_.reportEnabled && reportFormat_.makeWriter != nullptr; }
  text::Date today() const { return reportFormat_.today == nullptr ? text::Date() : reportFormat_.today(); }
  bool beginTarget(ConversionEngine& engine);
  bool openReport(ConversionEngine& engine);
  bool nameTarget();
  bool startsFreshGrid();

  const RunSettings& settings_;
  const TargetFormat& target_;
  const bool typed_;  ///< the points come from the keyboard
  const ReportFormat reportFormat_;
  DoubtFlags& doubts_;
  Screen* const screen_;

  text::LineWriter targetLines_;
  std::unique_ptr<PointWriter> targetWriter_;
  ReportHeading heading_;
  text::LineWriter reportLines_;
  std::unique_ptr<PointWriter> reportWriter_;
  bool anyPoint_ = false;
  bool targetNamed_ = false;
  bool reportWritten_ = false;
  int gridRows_ = -1;
};

}  // namespace tovak::run
