/// The selections of one run, as the window or the command line made them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "run/delimited_format.h"
#include "text/angle.h"

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
};

/// The map sheets of the geodetic database source, and what was chosen of them.
struct GeodeticCsvChoice {
  /// The files that are read as one, in their order; empty for the source file alone.
  std::vector<std::string> sheets;
  /// The data set, by the number of its latitude among a row's values: 1, 3, 5, 7, 9, 11; 0 for none.
  std::int16_t horizontal = 0;
  /// The heights: 13 for NAVD88, 14 for NGVD29; 0 for none.
  std::int16_t vertical = 0;
  std::string countyName;
  bool zonesOffered = false;
  /// What the county zone has behind the county's name; empty where no zone was chosen.
  std::string zoneSuffix;
};

struct RunSettings {
  std::int16_t sourceFormat = 0;  ///< index into the source format table
  std::int16_t targetFormat = 0;  ///< index into the target format table
  std::int16_t SourceProjectionCode = 0;
  std::int16_t TargetProjectionCode = 1;
  SideSettings source;
  SideSettings target;

  /// How latitudes and longitudes of the source are written.
  text::AngleForm latLongForm = text::AngleForm::DegreesMinutesSeconds;
  /// Whether the form was chosen rather than left at its default; the keyboard entry's hint depends on it.
  bool latLongFormChosen = false;
  Adjustment adjustment = Adjustment::None;
  VerticalDatum verticalDatum = VerticalDatum::Navd88;
  /// Precision of written coordinates, 0 (".001 units") to 5 ("100 units").
  int accuracy = 0;

  bool reportEnabled = false;
  bool printReport = false;
  bool appendReport = true;  ///< the report of a day keeps its earlier runs
  std::string reportFileName;
  std::string reportDescription;  ///< one line of the person's own, may be empty

  DelimitedFormat sourceDelimited;
  DelimitedFormat targetDelimited;
  GeodeticCsvChoice geodeticCsv;

  bool allowBlankPointNumbers = false;
  std::int32_t NextPointNumber = 1;
  std::int32_t PointNumberIncrement = 1;

  /// The field that a Trimble waypoint takes its name from before the others: "ST", "PD" or "PN".
  std::string waypointName = "PN";
  /// The number of a Maptech label's colour in hexadecimal: blue, green, red from its highest byte.
  std::string maptechColor = "ff";
  /// The number of a Maptech label's symbol.
  std::int32_t maptechSymbol = 17;
  std::string delormeSymbol = "CIRCLE";

  /// 0 interactive; 1 from the command line, falling back to the window on a problem; 2 from the command line, stopping
  /// on a problem.
  std::int16_t BatchMode = 0;
};

}  // namespace tovak::run
