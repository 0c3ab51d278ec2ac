/// Where the points of a system usually lie. A point outside is still converted but counts as doubtful: its northing
/// and easting may be swapped, or its unit wrong.
///
/// The file areas.txt gives the limits of a projection's area, one system a line: code, south, north, west and east in
/// decimal degrees with "|" between them. It is looked for in the data folder, then with the program's other files.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "run/conversion_engine.h"
#include "text/result.h"

namespace tovak::run {

/// Decimal degrees on the system's own datum, west negative.
struct UsualArea {
  std::int16_t code = 0;
  double south = 0.0;
  double north = 0.0;
  double west = 0.0;
  double east = 0.0;
};
using UsualAreas = std::vector<UsualArea>;

/// The areas of a file, or the file, line and reason of the first fault. A missing file means no areas.
text::Result<UsualAreas> readUsualAreas(const std::string& fileName);

/// Null for a system without an area.
const UsualArea* findUsualArea(const UsualAreas& areas, std::int16_t code);

/// An area as limits of northing and easting in a system's own unit; unlimited at first.
struct AreaLimits {
  double south = -std::numeric_limits<double>::infinity();
  double north = std::numeric_limits<double>::infinity();
  double west = -std::numeric_limits<double>::infinity();
  double east = std::numeric_limits<double>::infinity();

  bool holds(double northing, double easting) const {
    return northing >= south && northing <= north && easting >= west && easting <= east;
  }
};

/// The limits of an area in the system of a projection text, from its edges as the engine converts them. Unlimited when
/// the engine returns coordinates unchanged or refuses all of them.
AreaLimits areaLimits(ConversionEngine& engine, const UsualArea& area, const std::string& projectionText);

}  // namespace tovak::run
