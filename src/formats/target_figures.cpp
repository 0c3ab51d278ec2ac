#include "formats/target_figures.h"

#include <cmath>

#include "run/labels.h"
#include "run/projection_code.h"
#include "text/angle.h"
#include "text/number.h"

namespace tovak::formats {
namespace {

void putLengths(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures) {
  text::formatPrecision(figures.northing, point.OutNorthLat, settings.accuracy);
  text::formatPrecision(figures.easting, point.OutEastLon, settings.accuracy);
}

void putDecimalDegrees(const run::PointRecord& point, run::PointFigures& figures) {
  text::appendDecimalDegrees(figures.northing, point.OutNorthLat);
  text::appendDecimalDegrees(figures.easting, point.OutEastLon);
}

void putKnownElevation(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures) {
  if (hasElevation(point)) text::formatPrecision(figures.elevation, point.Elevation, settings.accuracy);
}

}  // namespace

bool hasElevation(const run::PointRecord& point) {
  return point.Elevation != 0.0 && std::isfinite(point.Elevation);
}

void earthFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures) {
  figures = {};
  text::appendFineDegrees(figures.northing, point.OutNorthLat);
  text::appendFineDegrees(figures.easting, point.OutEastLon);
  putKnownElevation(settings, point, figures);
}

void mapFigures(const run::RunSettings& /*settings*/, const run::PointRecord& point, run::PointFigures& figures) {
  figures = {};
  putDecimalDegrees(point, figures);
}

void waypointFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures) {
  figures = {};
  if (run::isLatLong(settings.TargetProjectionCode)) {
    putDecimalDegrees(point, figures);
  } else {
    putLengths(settings, point, figures);
  }
  putKnownElevation(settings, point, figures);
  if (point.Elevation == 0.0) figures.elevation = run::TargetUnitStepText(settings.target.metres);
}

void lengthFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures) {
  planeFigures(settings, point, figures);
  text::formatPrecision(figures.elevation, point.Elevation, settings.accuracy);
}

void knownLengthFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures) {
  planeFigures(settings, point, figures);
  putKnownElevation(settings, point, figures);
}

void planeFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures) {
  figures = {};
  putLengths(settings, point, figures);
}

void taggedFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures) {
  figures = {};
  if (run::isLatLong(settings.TargetProjectionCode)) {
    text::appendPackedAngle(figures.northing, point.OutNorthLat);
    text::appendPackedAngle(figures.easting, -point.OutEastLon);
  } else {
    putLengths(settings, point, figures);
  }
  putKnownElevation(settings, point, figures);
}

}  // namespace tovak::formats
