/// Point file formats as a run sees them: readers, writers, and the cards of the two format tables.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "run/conversion_engine.h"
#include "run/person.h"
#include "run/point_figures.h"
#include "run/point_record.h"
#include "run/record_counts.h"
#include "run/report_heading.h"
#include "run/run_settings.h"
#include "run/target_state.h"
#include "run/usual_areas.h"
#include "text/date.h"
#include "text/line_reader.h"
#include "text/line_writer.h"

namespace tovak::run {

/// What a reader works with. Everything lives as long as the run.
struct SourceContext {
  text::LineReader& lines;  ///< at the start of the source file; not open for the keyboard
  RunSettings& settings;
  RecordCounts& counts;  ///< a reader counts the lines it passes over
  DoubtFlags& doubts;    ///< about the point that is being read; the run clears them before each
  Message& message;      ///< receives the message of a check or read that fails
  TypedPoints* typedPoints = nullptr;
  /// The target takes source lines that are not points.
  bool wantsOtherLines = false;
  /// The target lies in one county zone: points of other zones are passed over.
  bool oneCountyZone = false;
};

enum class ReadState {
  Point,       ///< the record is filled, or its `refusal` says why it cannot be converted
  OtherLines,  ///< the record's `otherLines` are not points and go into the target as they are
  End,         ///< no further point (or a fault of the line reader, which the run checks itself)
  EndedEarly,  ///< no further point, and the message says why; the run finishes normally with the points so far
  Stopped,     ///< the message stops the run; the points so far are kept
};

/// Reads one point per call. State of one open file belongs to the reader.
class PointReader {
 public:
  PointReader() = default;
  PointReader(const PointReader&) = delete;
  PointReader& operator=(const PointReader&) = delete;
  virtual ~PointReader() = default;

  /// Checks the file just opened, before the target is touched. False: the context's message says why the file cannot
  /// be used.
  virtual bool check() = 0;
  /// Fills a point that the run has reset, `sourceLine` included.
  virtual ReadState read(PointRecord& point) = 0;
};

/// What a writer works with.
struct TargetContext {
  text::LineWriter& lines;  ///< after the identification line
  const RunSettings& settings;
  DoubtFlags& doubts;        ///< about the point that is being written
  std::string targetSystem;  ///< the engine's name of the target system, else its projection text
  std::string sourceSystem = {};
  text::Date today = {};
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
  /// Writes about a point that was refused. Point files have no place for it.
  virtual bool writeRefused(const PointRecord& /*point*/, std::string_view /*reason*/) { return true; }
  virtual bool end() = 0;
};

/// What an agency export works with. It opens and closes its files itself.
struct ExportContext {
  const RunSettings& settings;
  ConversionEngine& engine;
  RecordCounts& counts;
  Message& message;                         ///< receives the final message, good or bad
  bool targetIsPartner = false;             ///< the target format is the one that goes with the export
  TargetState& target;                      ///< receives what the target's name refers to at the end
  text::LineReader::Watch watch = nullptr;  ///< of the source
};

enum class SourceKind { Keyboard, File, AgencyRun };
enum class TargetKind { Screen, File, AgencyRun };

/// The format that an agency format brings along in the other list, by its index.
struct AgencyPartner {
  std::int16_t format;
  bool metres = false;  ///< the unit that both sides of the pair bring to the target
};

struct SourceFormat {
  std::string_view name;
  /// The format's name in job files, different from all others of its list; it never changes.
  std::string_view key = {};
  SourceKind kind = SourceKind::File;
  /// Null for an agency run.
  std::unique_ptr<PointReader> (*makeReader)(const SourceContext&) = nullptr;
  /// Does the whole job of an agency run, from the check of the target format to the finished file; null for the other
  /// kinds. False when the message stopped it.
  bool (*exportFile)(const ExportContext&) = nullptr;
  /// Sets the layout that the format forces on a run; null for nothing.
  void (*prepare)(RunSettings&) = nullptr;
  /// The form of latitudes and longitudes, where the format fixes it whatever is chosen.
  std::optional<text::AngleForm> forcedForm = {};
  /// The unit of the source, where the format fixes it.
  std::optional<LengthUnit> forcedUnit = {};
  /// What is still to be chosen before a run; null where nothing can be missing.
  std::optional<Message> (*missingChoice)(const RunSettings&) = nullptr;
  /// The format leaves the form of latitudes and longitudes open, so the chosen one applies.
  bool openForm = false;
  /// The person chooses the layout of a delimited file.
  bool choosesLayout = false;
  /// The files are map sheets of the geodetic database, one or more, with choices of their own.
  bool fromDatabase = false;
  /// Only of an agency run.
  std::optional<AgencyPartner> partner = {};
};

struct TargetFormat {
  std::string_view name;
  /// As that of a source format.
  std::string_view key = {};
  TargetKind kind = TargetKind::File;
  /// Null for the screen and for an agency run.
  std::unique_ptr<PointWriter> (*makeWriter)(const TargetContext&) = nullptr;
  /// How the format writes the numbers of a point.
  MakeFigures figures = screenFigures;
  /// Sets the layout that the format forces on a run; null for nothing.
  void (*prepare)(RunSettings&) = nullptr;
  /// Choosing the format puts latitude and longitude on NAD83 into the target projection box.
  bool forcesLatLong = false;
  /// The unit of the target, where the format fixes it.
  std::optional<LengthUnit> forcedUnit = {};
  /// The question before latitudes and longitudes are written to such a file; null for none.
  Message (*latLongQuestion)() = nullptr;
  TargetOptions options = TargetOptions::None;
  /// What the file's name must end in (letter case ignored), and the question before it is added, null for the usual
  /// one; empty for any name. Names that end in the other ending are left alone.
  std::string_view fileNameEnding = {};
  std::string_view otherEnding = {};
  Message (*fileNameQuestion)() = nullptr;
  /// The person chooses the layout of a delimited file.
  bool choosesLayout = false;
  /// Source lines that are not points are copied when the source has the same format.
  bool takesOtherLines = false;
  /// From the geodetic database, only points of the chosen county zone go into such a file.
  bool oneCountyZone = false;
  /// The file begins with the writer's own lines, since no reader of the format would pass over the identification
  /// line.
  bool ownBeginning = false;
  /// The points bring the engine's result text about the source's system along (`PointRecord::sourceInfo`).
  bool wantsSourceInfo = false;
  /// A last line that the run adds after the writer's lines; empty for none.
  std::string_view closingLine = {};
  /// Only of an agency run.
  std::optional<AgencyPartner> partner = {};
};

/// What the writer of a report works with.
struct ReportContext {
  text::LineWriter& lines;
  const RunSettings& settings;
  const ReportHeading& heading;
};

/// How a run makes its report. Without a writer there is no report.
struct ReportFormat {
  std::unique_ptr<PointWriter> (*makeWriter)(const ReportContext&) = nullptr;
  std::string_view version = {};  ///< the program's: major, minor and revision numbers joined by "."
  text::Date (*today)() = nullptr;
  /// The text between an older report and one that is appended to it; see `text::TargetFile`.
  text::TargetFile::Joint joint = nullptr;
};

/// What a run works with besides its settings: the formats in the order of the lists that people choose from, that of
/// the report, and the usual areas of the systems.
struct FormatTables {
  std::span<const SourceFormat> sources;
  std::span<const TargetFormat> targets;
  ReportFormat report = {};
  /// Null: no system has one.
  const UsualAreas* areas = nullptr;
};

}  // namespace tovak::run
