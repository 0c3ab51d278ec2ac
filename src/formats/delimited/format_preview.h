/// How a delimited format divides a file, shown while the format is edited.
#pragma once

#include <string>
#include <vector>

#include "run/run_settings.h"

namespace tovak::formats::delimited {

struct PreviewCell {
  std::string text = {};
  /// A northing, easting or angle that reads as 0: its line is not a point.
  bool zeroCoordinate = false;
};

struct PreviewRow {
  std::string label = {};  ///< the number of a source line, or what a target line is
  std::vector<PreviewCell> cells = {};
  /// A line without the delimiter: one cell, the line as it stands.
  bool undivided = false;
  bool point = false;  ///< a source line that is read as a point
};

struct FormatPreview {
  std::vector<std::string> columns = {};
  std::vector<PreviewRow> rows = {};
  std::string note = {};  ///< one sentence or two about the rows
};

/// The first lines of a source file, cut off where they are very long.
struct SourceStart {
  std::vector<std::string> lines;
  /// Why there are none or no more lines; empty when there is no error.
  std::string problem;
};

/// Reads no more than the first 20 lines, and only of ordinary files.
SourceStart readSourceStart(const std::string& fileName);

/// Those lines as the format divides them. `latLong`: of a source in latitude and longitude.
FormatPreview previewSource(const run::DelimitedFormat& format, const SourceStart& start, bool latLong);

enum class SampleSystems {
  OfTarget,  ///< the sample is in the target's kind of system
  Both,      ///< once as northing and easting, once as latitude and longitude
};

/// A sample point with every field filled, as the writer writes it in the format, below the header if there is one.
FormatPreview previewTarget(const run::DelimitedFormat& format, run::RunSettings settings, SampleSystems systems);

}  // namespace tovak::formats::delimited
