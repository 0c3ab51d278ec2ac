#include "report/point_texts.h"

#include "run/point_figures.h"
#include "run/projection_code.h"

namespace tovak::report {

void makePointTexts(const run::PointRecord& point, const run::RunSettings& settings, PointTexts& texts) {
  const bool sourceAngles = run::isLatLong(settings.SourceProjectionCode);
  const bool targetAngles = run::isLatLong(settings.TargetProjectionCode);
  run::makeCoordinate(texts.northing, point.InNorthLat, sourceAngles, settings);
  run::makeCoordinate(texts.easting, point.InEastLon, sourceAngles, settings);
  if (!point.reportNorthing.empty()) texts.northing = point.reportNorthing;
  if (!point.reportEasting.empty()) texts.easting = point.reportEasting;
  run::makeCoordinate(texts.targetNorthing, point.OutNorthLat, targetAngles, settings);
  run::makeCoordinate(texts.targetEasting, point.OutEastLon, targetAngles, settings);
  run::makeCoordinate(texts.elevation, point.Elevation, false, settings);
}

}  // namespace tovak::report
