/// The computation of one point between two sides that have been made ready.
#pragma once

#include <optional>

#include "engine/catalogue.h"
#include "engine/datum_shift.h"
#include "engine/grid_factors.h"
#include "engine/projections.h"
#include "engine/served_rectangle.h"
#include "run/length_unit.h"

namespace tovak::engine {

/// Northing and easting in the side's unit, or latitude and longitude in decimal degrees, west negative; the elevation
/// in the side's unit.
struct Point {
  double northing = 0.0;
  double easting = 0.0;
  double elevation = 0.0;
};

struct Side {
  const CoordinateSystem* system = nullptr;
  run::LengthUnit unit = run::LengthUnit::usSurveyFeet;
  const Projection* projection = nullptr;  ///< null for latitude and longitude
};

struct ConversionPair {
  Side source;
  Side target;
  const DatumShift* shift = nullptr;  ///< open; null when both sides are on one datum
  /// Plane coordinates, in the source's unit, that are certainly in the area served.
  PlaneRectangle served = {};
};

/// Prepares the shortcut for two sides in one system, once both are set.
void findShortcut(ConversionPair& pair);

/// Converts `point` in place from source to target. The source longitude of a latitude and longitude system counts as
/// west whatever its sign; a northing and an easting of 0 together are not a point. Between equal systems coordinates
/// change by their unit only. `factors` receives those of the target at the point, nothing where it has none; null when
/// they are not wanted, which spares computing them. After a failure neither may be used.
Error convertPoint(const ConversionPair& pair, Point& point, std::optional<GridFactors>* factors);

}  // namespace tovak::engine
