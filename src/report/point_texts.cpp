#include "report/point_texts.h"

#include "run/point_figures.h"
#include "run/projection_code.h"

namespace tovak::report {

void makePointTexts(const run::PointRecord& point, const run::RunSettings& settings, PointTexts& texts) {
  const bool targetAngles = run::isLatLong(settings.TargetProjectionCode);
  run::makeSourceCoordinates(texts.northing, texts.easting, point, settings);
  run::makeCoordinate(texts.targetNorthing, point.OutNorthLat, targetAngles, settings);
  run::makeCoordinate(texts.targetEasting, point.OutEastLon, targetAngles, settings);
  run::makeCoordinate(texts.elevation, point.Elevation, false, settings);
}

}  // namespace tovak::report
