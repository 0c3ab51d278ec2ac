#include "report/point_texts.h"

#include "run/projection_code.h"
#include "text/angle.h"
#include "text/number.h"

namespace tovak::report {
namespace {

constexpr int kDegreeDecimals = 9;

void makeAngle(std::string& out, double degrees, text::AngleForm form) {
  out.clear();
  if (form == text::AngleForm::DecimalDegrees) {
    text::appendFixed(out, degrees, kDegreeDecimals);
    return;
  }
  text::appendSpacedAngle(out, degrees);
}

void makeLength(std::string& out, double length, int accuracy) {
  out.clear();
  text::appendPrecision(out, length, accuracy);
}

void makeCoordinate(std::string& out, double value, bool angle, const run::RunSettings& settings) {
  if (angle) {
    makeAngle(out, value, settings.latLongForm);
  } else {
    makeLength(out, value, settings.accuracy);
  }
}

}  // namespace

void makePointTexts(const run::PointRecord& point, const run::RunSettings& settings, PointTexts& texts) {
  const bool sourceAngles = run::isLatLong(settings.SourceProjectionCode);
  const bool targetAngles = run::isLatLong(settings.TargetProjectionCode);
  if (point.reportNorthing.empty()) {
    makeCoordinate(texts.northing, point.InNorthLat, sourceAngles, settings);
  } else {
    texts.northing = point.reportNorthing;
  }
  if (point.reportEasting.empty()) {
    makeCoordinate(texts.easting, point.InEastLon, sourceAngles, settings);
  } else {
    texts.easting = point.reportEasting;
  }
  makeCoordinate(texts.targetNorthing, point.OutNorthLat, targetAngles, settings);
  makeCoordinate(texts.targetEasting, point.OutEastLon, targetAngles, settings);
  makeLength(texts.elevation, point.Elevation, settings.accuracy);
}

}  // namespace tovak::report
