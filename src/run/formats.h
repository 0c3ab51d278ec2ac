/// What a point file format is to a run: a reader, a writer, and the identity cards that the two format tables list.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "run/conversion_engine.h"
#include "run/person.h"
#include "run/point_record.h"
#include "run/record_counts.h"
#include "run/report_heading.h"
#include "run/run_settings.h"
#include "text/line_reader.h"
#include "text/line_writer.h"

namespace tovak::run {

/// What a reader works with. Everything lives as long as the run.
struct SourceContext {
  text::LineReader& lines;  ///< at the start of the source file; closed for the keyboard
  RunSettings& settings;
  RecordCounts& counts;  ///< a reader counts the lines it passes over
  Person& person;
  Message& message;  ///< receives the message of a check or read that fails
  /// Where lines that are no points go, from the first read on; null unless the target takes them.
  text::LineWriter* otherLines = nullptr;
};

enum class ReadState {
  Point,       ///< the record is filled
  End,         ///< no further point (or a fault of the line reader, which the run looks at itself)
  EndedEarly,  ///< no further point, and the message says why; the run finishes normally with the points so far
  Stopped,     ///< the message stops the run; the points so far are kept
};

/// Reads one point per call. What belongs to one open file lives in the reader and dies with it.
class PointReader {
 public:
  PointReader() = default;
  PointReader(const PointReader&) = delete;
  PointReader& operator=(const PointReader&) = delete;
  virtual ~PointReader() = default;

  /// The format's look at the file just opened, before the target is touched. False: the context's message says why
  /// the file is of no use.
  virtual bool check() = 0;
  /// Fills a point that the run has reset, `sourceLine` included.
  virtual ReadState read(PointRecord& point) = 0;
};

/// What a writer works with.
struct TargetContext {
  text::LineWriter& lines;  ///< behind the identification line
  const RunSettings& settings;
  std::string targetSystem;  ///< the engine's name of the target system, else its projection text
};

/// Writes one point per call: a target's format, or the report. Each operation returns false when the file failed; its
/// error is the line writer's.
class PointWriter {
 public:
  PointWriter() = default;
  PointWriter(const PointWriter&) = delete;
  PointWriter& operator=(const PointWriter&) = delete;
  virtual ~PointWriter() = default;

  virtual bool begin() = 0;
  virtual bool write(const PointRecord& point) = 0;
  /// Tells of a point that was refused, in words. A format of points has no place for it.
  virtual bool writeRefused(const PointRecord& /*point*/, std::string_view /*reason*/) { return true; }
  virtual bool end() = 0;
};

/// What an agency export works with. It opens and closes its files itself.
struct ExportContext {
  const RunSettings& settings;
  ConversionEngine& engine;
  RecordCounts& counts;
  Person& person;    ///< is told the progress; messages are the run's
  Message& message;  ///< receives what is said at the end, good or bad
};

enum class SourceKind { Keyboard, File, AgencyRun };
enum class TargetKind { Screen, File, AgencyRun };

struct SourceFormat {
  std::string_view name;
  SourceKind kind = SourceKind::File;
  /// Null for an agency run.
  std::unique_ptr<PointReader> (*makeReader)(const SourceContext&) = nullptr;
  /// Does the whole job of an agency run, from the check of the target format to the finished file; null for the other
  /// kinds. False when the message stopped it.
  bool (*exportFile)(const ExportContext&) = nullptr;
  /// Sets what the format forces on a run; null for nothing.
  void (*prepare)(RunSettings&) = nullptr;
  /// The layout itself packs angles as degrees, minutes and seconds, whatever form is chosen.
  bool packedAngles = false;
};

struct TargetFormat {
  std::string_view name;
  TargetKind kind = TargetKind::File;
  /// Null for the screen and for an agency run.
  std::unique_ptr<PointWriter> (*makeWriter)(const TargetContext&) = nullptr;
  void (*prepare)(RunSettings&) = nullptr;
  /// Choosing the format puts latitude and longitude on NAD83 into the target projection box.
  bool forcesLatLong = false;
  TargetOptions options = TargetOptions::None;
  /// What the file's name must end in, letter case aside; empty for anything.
  std::string_view fileNameEnding = {};
  /// Lines of the source that are no points are copied when it is of the same kind.
  bool takesOtherLines = false;
  /// A last line that the run writes behind the writer's own; empty for none.
  std::string_view closingLine = {};
};

/// What the writer of a report works with.
struct ReportContext {
  text::LineWriter& lines;
  const RunSettings& settings;
  const ReportHeading& heading;
};

/// How a run comes by its report. Without a writer there is none.
struct ReportFormat {
  std::unique_ptr<PointWriter> (*makeWriter)(const ReportContext&) = nullptr;
  std::string_view version = {};  ///< the program's: major, minor and revision numbers joined by "."
  text::Date (*today)() = nullptr;
};

/// The formats in the order of the lists that people choose from, and that of the report.
struct FormatTables {
  std::span<const SourceFormat> sources;
  std::span<const TargetFormat> targets;
  ReportFormat report = {};
};

}  // namespace tovak::run
