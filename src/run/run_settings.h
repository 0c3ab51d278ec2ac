/// The selections of one run, as the window or the command line made them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "run/delimited_format.h"
#include "run/format_options.h"
#include "run/length_unit.h"
#include "run/user_project.h"
#include "text/angle.h"
#include "text/number.h"

namespace tovak::run {

/// A year of the North American Datum of 1983. A label: it never changes a coordinate.
enum class Adjustment { None, Nad83_1986, Nad83_1996, Nad83_2007, Nad83_2011 };

enum class VerticalDatum { Navd88, Ngvd29 };

/// One side of the conversion.
struct SideSettings {
  std::string fileName;        ///< empty for the keyboard and the screen
  std::string projectionText;  ///< what the engine receives
  std::string displayName;     ///< of a user-defined project, else empty
  bool metres = false;         ///< else U.S. survey feet

  bool operator==(const SideSettings&) const = default;
};

inline LengthUnit unitOf(const SideSettings& side) {
  return unitOf(side.metres);
}

struct RunSettings {
  std::int16_t sourceFormat = 0;  ///< index into the source format table
  std::int16_t targetFormat = 0;  ///< index into the target format table
  std::int16_t SourceProjectionCode = 0;
  std::int16_t TargetProjectionCode = 1;
  SideSettings source;
  SideSettings target;
  /// "NAD27" or "NAD83", the datum found with the definition of the user-defined project; empty where it is not known.
  /// A run takes it from the project.
  std::string projectDatum;
  /// The user-defined project of a job; nothing for the one in the data folder.
  std::optional<UserProject> project = {};

  /// How latitudes and longitudes of the source are written.
  text::AngleForm latLongForm = text::AngleForm::DegreesMinutesSeconds;
  /// Whether the form was chosen rather than left at its default; the keyboard entry's hint depends on it.
  bool latLongFormChosen = false;
  Adjustment adjustment = Adjustment::None;
  VerticalDatum verticalDatum = VerticalDatum::Navd88;
  /// The precision of written coordinates, for formats that do not repeat that of the source.
  text::Accuracy accuracy = text::Accuracy::Thousandth;

  bool reportEnabled = false;
  bool printReport = false;
  bool appendReport = true;  ///< the report of a day keeps its earlier runs
  std::string reportFileName;
  std::string reportDescription;  ///< one line of the person's own, may be empty

  DelimitedFormat sourceDelimited;
  DelimitedFormat targetDelimited;

  bool allowBlankPointNumbers = false;
  std::int32_t NextPointNumber = 1;
  std::int32_t PointNumberIncrement = 1;

  FormatOptions options;

  /// 0 interactive; 1 from the command line, falling back to the window on a problem; 2 from the command line, stopping
  /// on a problem.
  std::int16_t BatchMode = 0;

  bool operator==(const RunSettings&) const = default;
};

}  // namespace tovak::run
