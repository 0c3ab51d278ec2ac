/// How a run talks to the person, one interface for each use. A batch run implements messages and progress only, the
/// window all of them, the tests a script of answers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "run/message.h"
#include "run/point_record.h"
#include "run/point_sample.h"
#include "run/report_heading.h"
#include "run/run_settings.h"

namespace tovak::run {

/// The options dialogs that some targets show before their file is opened.
enum class TargetOptions { None, DeLorme, Maptech, TrimbleWaypoints };

/// Messages and questions.
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
  /// Whether the target may replace the file of that name, which is there. A person who can be asked is.
  virtual bool mayReplace(const std::string&) { return true; }
  /// Turns a batch run that met a problem into an interactive one; false when there is no window to turn to.
  virtual bool leaveBatchMode() = 0;
  /// Shows the options dialog of a target; false when it was cancelled.
  virtual bool chooseTargetOptions(TargetOptions options) = 0;
};

/// Points typed one at a time.
class TypedPoints {
 public:
  TypedPoints() = default;
  TypedPoints(const TypedPoints&) = delete;
  TypedPoints& operator=(const TypedPoints&) = delete;
  virtual ~TypedPoints() = default;

  /// Fills number, description, coordinates and heights of the next point; false when there is none.
  virtual bool typePoint(PointRecord& point) = 0;
};

/// The output grid and the printer.
class Screen {
 public:
  Screen() = default;
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  virtual ~Screen() = default;

  /// Adds a converted point to the output grid, which is emptied and headed afresh first when `freshGrid` is set.
  virtual void showRow(const PointRecord& point, bool freshGrid) = 0;
  /// Shows the output grid until it is closed.
  virtual void showGrid() = 0;
  /// Prints the report that begins at byte `start` of the report file.
  virtual void printReport(const ReportHeading& heading, std::uint64_t start) = 0;
};

/// How far a run has come.
struct Reached {
  std::uint64_t records = 0;
  std::uint64_t bytes = 0;  ///< of the source
  std::uint64_t size = 0;   ///< of the source; 0 where it is not known, as in a pipe
};

class Progress {
 public:
  Progress() = default;
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  virtual ~Progress() = default;

  /// Called for every block of the source, some thousand times a second, and after each message about a single point.
  /// False stops the run: nothing of it is kept.
  virtual bool progress(const Reached& reached) = 0;
};

/// Everything a run can talk to. A null pointer means that there is none: no typed points, no screen, no progress, no
/// sample.
struct Audience {
  Person& person;
  TypedPoints* typedPoints = nullptr;
  Screen* screen = nullptr;
  Progress* progress = nullptr;
  PointSample* sample = nullptr;  ///< takes the points for a plan
  std::size_t keptLines = 0;      ///< how many lines each tally of the account keeps
};

}  // namespace tovak::run
