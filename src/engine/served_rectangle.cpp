#include "engine/served_rectangle.h"

#include <algorithm>
#include <cmath>
#include <variant>

#include "engine/catalogue.h"

namespace tovak::engine {
namespace {

PlanePoint projectDegrees(const Projection& projection, double latitude, double longitude) {
  return projection.project({.latitude = latitude * kRadiansPerDegree, .longitude = longitude * kRadiansPerDegree});
}

}  // namespace

// The limits are the innermost points of the images of the area's four edges, so no edge enters the rectangle; and
// since the middle of the area is in the rectangle, all of the rectangle is in the area. Between the points tried an
// edge bulges by some ten metres.
PlaneRectangle rectangleServed(const Projection& projection) {
  constexpr AreaServed area = kAreaServed;
  constexpr int kSteps = 50;
  constexpr double kMargin = 1000.0;
  if (std::holds_alternative<std::monostate>(projection.closedForm())) return {};

  constexpr double kEverything = std::numeric_limits<double>::infinity();
  PlaneRectangle inner = {.south = -kEverything, .north = kEverything, .west = -kEverything, .east = kEverything};
  for (int step = 0; step <= kSteps; ++step) {
    const double part = static_cast<double>(step) / kSteps;
    const double latitude = std::lerp(area.south, area.north, part);
    const double longitude = std::lerp(area.west, area.east, part);
    inner.south = std::max(inner.south, projectDegrees(projection, area.south, longitude).northing + kMargin);
    inner.north = std::min(inner.north, projectDegrees(projection, area.north, longitude).northing - kMargin);
    inner.west = std::max(inner.west, projectDegrees(projection, latitude, area.west).easting + kMargin);
    inner.east = std::min(inner.east, projectDegrees(projection, latitude, area.east).easting - kMargin);
  }
  const PlanePoint middle = projectDegrees(projection, (area.south + area.north) / 2.0, (area.west + area.east) / 2.0);
  return inner.holds(middle.northing, middle.easting) ? inner : PlaneRectangle();
}

}  // namespace tovak::engine
