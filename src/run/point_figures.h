/// The numbers of a point as texts.
#pragma once

#include <string>
#include <utility>

#include "run/point_record.h"
#include "run/run_settings.h"

namespace tovak::run {

/// Coordinates and elevation as they stand in a target; empty for what it has no place for.
struct PointFigures {
  std::string northing = {};  ///< or latitude
  std::string easting = {};
  std::string elevation = {};
};

/// How a target writes a converted point's numbers. The texts are replaced.
using MakeFigures = void (*)(const RunSettings& settings, const PointRecord& point, PointFigures& figures);

/// A coordinate as the screen and the report show it: a length with the run's precision; an angle as decimal degrees
/// with nine decimals when that is the run's form, else as degrees, minutes and seconds with five, blanks between.
void makeCoordinate(std::string& text, double value, bool angle, const RunSettings& settings);

/// The source's coordinates as the report shows them: in the precision and form of the run, packed angles with two
/// decimals.
void makeSourceCoordinates(std::string& northing, std::string& easting, const PointRecord& point,
                           const RunSettings& settings);

/// The source's coordinates of a point that was read, northing or latitude first, with three decimals or as the
/// source's angles. Empty where an angle was not understood and is no packed number either.
std::pair<std::string, std::string> sourceCoordinates(const RunSettings& settings, const PointRecord& point);

/// As the screen shows them.
void screenFigures(const RunSettings& settings, const PointRecord& point, PointFigures& figures);

}  // namespace tovak::run
