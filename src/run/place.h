/// Where points lie, whatever system they are given in.
#pragma once

#include <optional>
#include <string>

#include "run/conversion_engine.h"
#include "run/run_settings.h"

namespace tovak::run {

/// Decimal degrees, west negative.
struct Place {
  double latitude = 0.0;
  double longitude = 0.0;
};

/// Finds the places of points of a run's source, on the source's datum. The engine prepares a pair of systems at its
/// first use, so it is best asked for many points in a row.
class PlaceFinder {
 public:
  /// `settings` are those of a run that has begun, and outlive the finder like the engine.
  PlaceFinder(ConversionEngine& engine, const RunSettings& settings);

  /// Nothing for a point that the engine refuses. Coordinates are in the source's unit, angles in decimal degrees.
  std::optional<Place> placeOf(double northing, double easting);

 private:
  ConversionEngine& engine_;
  const RunSettings& settings_;
  std::string system_;
  std::string info_;
};

}  // namespace tovak::run
