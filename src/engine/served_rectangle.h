/// A part of a projection's plane that certainly lies in the area served.
#pragma once

#include <limits>

#include "engine/geographic.h"
#include "engine/projections.h"

namespace tovak::engine {

/// Limits of northing and easting; a default-constructed one is empty.
struct PlaneRectangle {
  double south = std::numeric_limits<double>::infinity();
  double north = -std::numeric_limits<double>::infinity();
  double west = std::numeric_limits<double>::infinity();
  double east = -std::numeric_limits<double>::infinity();

  /// False for coordinates that are not numbers.
  bool holds(double northing, double easting) const {
    return northing > south && northing < north && easting > west && easting < east;
  }
};

/// A rectangle, in metres, whose points all have their latitude and longitude in the area served, so that these need
/// not be computed to know it. It is empty where the projection has no closed form, since its behaviour between the
/// points tried is then unknown.
PlaneRectangle rectangleServed(const Projection& projection);

}  // namespace tovak::engine
