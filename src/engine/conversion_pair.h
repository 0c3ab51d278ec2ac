/// The computation of one point between two sides that have been made ready.
#pragma once

#include <optional>

#include "engine/catalogue.h"
#include "engine/datum_shift.h"
#include "engine/grid_factors.h"
#include "engine/projections.h"
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
  PJconsts* projection = nullptr;  ///< null for latitude and longitude
};

struct ConversionPair {
  Side source;
  Side target;
  const DatumShift* shift = nullptr;       ///< open; null when both sides are on one datum
  const FactorFormula* factors = nullptr;  ///< of the target; null for latitude and longitude
};

/// Converts `point` in place from source to target. The source longitude of a latitude and longitude system counts as
/// west whatever its sign. Between equal systems coordinates change by their unit only. `factors`
/// receives those of the target at the point, nothing where it has none. After a failure neither is to be used.
Error convertPoint(const ConversionPair& pair, Point& point, std::optional<GridFactors>& factors);

}  // namespace tovak::engine
