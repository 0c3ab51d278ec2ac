/// What a run would make of the first records of a source, shown before it is started.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "run/conversion_engine.h"
#include "run/fate.h"
#include "run/formats.h"
#include "run/place.h"
#include "run/run_settings.h"

namespace tovak::run {

/// How much of a source is looked at. The bytes are per file where the source is several files.
struct PreviewLimits {
  std::size_t records = 200;
  std::size_t bytes = std::size_t{256} << 10;
};

/// The coordinates a source gives for a point: northing and easting in its unit, or latitude and longitude in decimal
/// degrees.
struct SourcePosition {
  double northing = 0.0;
  double easting = 0.0;
};

/// A record that is a point, or would be one if it were not refused.
struct PreviewRow {
  std::uint64_t line = 0;  ///< the line of the source where the record begins
  std::string file;        ///< the file of that line where the source is several files; else empty
  std::string sourceText;  ///< that line unchanged; empty where the source is several files
  Fate fate = Fate::Converted;
  std::string number;  ///< as it would be written, including default numbering
  std::string description;
  std::string northing;  ///< northing or latitude of the source as understood; empty where it was not
  std::string easting;
  PointFigures target;      ///< with as many digits as the target would get; empty for a refused point
  std::string convergence;  ///< in the target system at the point, D-MM-SS.ss
  std::string scaleFactor;
  std::string reason;  ///< why it would be refused, or what is doubtful; otherwise empty
  DoubtFlags doubts = {};
  std::optional<SourcePosition> position;  ///< nothing for angles that were not understood
  std::optional<Place> place;              ///< where the point lies, on the source's datum; nothing where unknown
  /// The bytes of `targetText` that belong to the point.
  std::size_t targetBegin = 0;
  std::size_t targetEnd = 0;
};

enum class Verdict {
  Nothing,   ///< there is nothing to preview: no source file, the keyboard
  Good,      ///< every record would be converted
  Doubtful,  ///< every record would be converted, but there are doubts
  Bad,       ///< records would be refused, or something keeps the run from being started or finished
};

struct Preview {
  Verdict verdict = Verdict::Nothing;
  std::string verdictText;  ///< one line; empty for `Nothing`
  /// What a run would say at its start, or at the fault that ends it; nothing when it would finish.
  std::optional<Message> problem;
  std::vector<PreviewRow> rows;
  RecordCounts counts;    ///< of the records looked at
  bool complete = false;  ///< whether these are all that the source has
  /// The beginning of the target file, byte for byte as a run would write it; the whole file when the preview is
  /// complete.
  std::string targetText;
};

/// Sends the first records through a run's corridor, from the reader to the writer, into memory. Asks no questions,
/// leaves the disk unchanged, and reads ordinary files only. Problems that would stop a run but not its conversion,
/// such as two files with the same name, do not prevent the rows.
Preview previewRun(RunSettings settings, ConversionEngine& engine, const FormatTables& formats,
                   const PreviewLimits& limits = {});

}  // namespace tovak::run
