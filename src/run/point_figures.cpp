#include "run/point_figures.h"

#include "run/projection_code.h"
#include "text/angle.h"
#include "text/number.h"

namespace tovak::run {
namespace {

constexpr int kDegreeDecimals = 9;

}  // namespace

void makeCoordinate(std::string& text, double value, bool angle, const RunSettings& settings) {
  text.clear();
  if (!angle) {
    text::formatPrecision(text, value, settings.accuracy);
  } else if (settings.latLongForm == text::AngleForm::DecimalDegrees) {
    text::appendFixed(text, value, kDegreeDecimals);
  } else {
    text::appendSpacedAngle(text, value);
  }
}

void makeSourceCoordinates(std::string& northing, std::string& easting, const PointRecord& point,
                           const RunSettings& settings) {
  if (!point.packedAngles) {
    const bool angles = isLatLong(settings.SourceProjectionCode);
    makeCoordinate(northing, point.InNorthLat, angles, settings);
    makeCoordinate(easting, point.InEastLon, angles, settings);
    return;
  }
  northing.clear();
  text::formatPrecision(northing, point.packedAngles->latitude, text::Accuracy::Hundredth);
  easting.clear();
  text::formatPrecision(easting, point.packedAngles->longitude, text::Accuracy::Hundredth);
}

std::pair<std::string, std::string> sourceCoordinates(const RunSettings& settings, const PointRecord& point) {
  std::pair<std::string, std::string> texts;
  if (!point.refusal.empty() && !point.packedAngles) return texts;
  RunSettings exact;
  exact.latLongForm = settings.latLongForm;
  exact.SourceProjectionCode = settings.SourceProjectionCode;
  makeSourceCoordinates(texts.first, texts.second, point, exact);
  return texts;
}

void screenFigures(const RunSettings& settings, const PointRecord& point, PointFigures& figures) {
  const bool angles = isLatLong(settings.TargetProjectionCode);
  makeCoordinate(figures.northing, point.OutNorthLat, angles, settings);
  makeCoordinate(figures.easting, point.OutEastLon, angles, settings);
  makeCoordinate(figures.elevation, point.Elevation, false, settings);
}

}  // namespace tovak::run
