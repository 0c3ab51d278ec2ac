/// The one way in which a run talks to the person: the window does it with boxes, a batch run with standard error, the
/// tests with a script of answers.
#pragma once

#include <cstdint>

#include "run/message.h"
#include "run/point_record.h"
#include "run/report_heading.h"
#include "run/run_settings.h"

namespace tovak::run {

/// How many records pass between two reports of progress.
inline constexpr std::uint64_t kProgressStep = 4096;

/// The options dialogs that some targets show before their file is opened.
enum class TargetOptions { None, DeLorme, Maptech, TrimbleWaypoints };

class Person {
 public:
  Person() = default;
  Person(const Person&) = delete;
  Person& operator=(const Person&) = delete;
  virtual ~Person() = default;

  /// Shows a message until it is acknowledged.
  virtual void show(const Message& message) = 0;
  /// Asks a question; true for yes.
  virtual bool confirm(const Message& question) = 0;
  /// Turns a batch run that met a problem into an interactive one; false when there is no window to turn to.
  virtual bool leaveBatchMode() = 0;
  /// Shows the options dialog of a target; false when it was cancelled.
  virtual bool chooseTargetOptions(TargetOptions options) = 0;
  /// Fills number, description, coordinates and heights of the next typed point; false when there is none.
  virtual bool typePoint(PointRecord& point) = 0;
  /// Adds a converted point to the output grid, which is emptied and headed afresh first when `freshGrid` is set.
  virtual void showRow(const PointRecord& point, bool freshGrid) = 0;
  /// Prints the report that begins at byte `start` of the report file.
  virtual void printReport(const ReportHeading& heading, std::uint64_t start) = 0;
  /// Shows the output grid until it is closed.
  virtual void showGrid() = 0;
  /// Tells now and then how many records have been read so far.
  virtual void progress(std::uint64_t records) = 0;
};

}  // namespace tovak::run
