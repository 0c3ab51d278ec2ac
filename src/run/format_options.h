/// The options of single formats. Formats without options are not listed.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tovak::run {

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
  /// What follows the county's name in the county zone; empty where no zone was chosen.
  std::string zoneSuffix;

  bool operator==(const GeodeticCsvChoice&) const = default;
};

struct WaypointOptions {
  /// The field preferred as the name of a waypoint: "ST", "PD" or "PN".
  std::string name = "PN";

  bool operator==(const WaypointOptions&) const = default;
};

struct MaptechOptions {
  /// The number of a label's colour in hexadecimal: blue, green, red from its highest byte.
  std::string color = "ff";
  /// The number of a label's symbol.
  std::int32_t symbol = 17;

  bool operator==(const MaptechOptions&) const = default;
};

struct DelormeOptions {
  std::string symbol = "CIRCLE";

  bool operator==(const DelormeOptions&) const = default;
};

struct FormatOptions {
  GeodeticCsvChoice geodeticCsv;
  WaypointOptions waypoints;
  MaptechOptions maptech;
  DelormeOptions delorme;

  bool operator==(const FormatOptions&) const = default;
};

}  // namespace tovak::run
