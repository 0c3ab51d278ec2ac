#include "run/typed_point.h"

#include <algorithm>
#include <cmath>

#include "run/labels.h"
#include "run/projection_code.h"
#include "text/number.h"

namespace tovak::run {
namespace {

constexpr int kHeightDecimals = 4;

struct CoordinateNames {
  std::string_view northing;
  std::string_view easting;
};

constexpr CoordinateNames kAngles = {"latitude", "longitude"};
constexpr CoordinateNames kLengths = {"northing/Y", "easting/X"};

struct AngleLimit {
  double largest;
  std::string_view words;
};

constexpr AngleLimit kLatitudeLimit = {90.0, "90"};
constexpr AngleLimit kLongitudeLimit = {180.0, "180"};

std::string quoted(std::string_view name, const std::string& text) {
  return "The " + std::string(name) + " \"" + text + "\" ";
}

std::optional<std::string> notANumber(std::string_view name, const std::string& text) {
  const std::optional<double> value = text::strictNumber(text);
  if (value && std::isfinite(*value)) return std::nullopt;
  return quoted(name, text) + "is not a number.";
}

std::optional<std::string> notAnAngle(std::string_view name, const std::string& text, text::AngleForm form,
                                      const AngleLimit& limit) {
  if (std::optional<std::string> fault = notANumber(name, text)) return fault;
  const std::optional<double> degrees = text::interpretAngle(text::leadingNumber(text), form);
  if (!degrees) return quoted(name, text) + "has minutes or seconds that are not below 60.";
  if (std::fabs(*degrees) <= limit.largest) return std::nullopt;
  return quoted(name, text) + "is more than " + std::string(limit.words) + " degrees.";
}

std::optional<std::string> faultOf(const TypedTexts& texts, bool latLong, text::AngleForm form) {
  std::optional<std::string> fault;
  if (latLong) {
    fault = notAnAngle(kAngles.northing, texts.northing, form, kLatitudeLimit);
    if (!fault) fault = notAnAngle(kAngles.easting, texts.easting, form, kLongitudeLimit);
  } else {
    fault = notANumber(kLengths.northing, texts.northing);
    if (!fault) fault = notANumber(kLengths.easting, texts.easting);
  }
  const bool heights = std::isfinite(texts.elevation) && std::isfinite(texts.geoid) && std::isfinite(texts.ellipsoid);
  if (!fault && !heights) fault = "A height is too large to be a number.";
  return fault;
}

/// A height that was not typed is zero, and its field stays empty.
void takeHeight(double height, std::string& field) {
  field.clear();
  if (height != 0.0) text::appendFixed(field, height, kHeightDecimals);
}

}  // namespace

std::string_view entryHint(const RunSettings& settings) {
  if (isLatLong(settings.SourceProjectionCode)) {
    if (settings.latLongFormChosen && settings.latLongForm == text::AngleForm::DecimalDegrees) return "DD.ddddddddd";
    if (settings.latLongFormChosen && settings.latLongForm == text::AngleForm::DegreesDecimalMinutes) {
      return "DDMM.mmmmmmm";
    }
    return "DD MM SS.sssss  or  DDMMSS.sssss  or  DD.MMSSsssss";
  }
  const UnitLabels units = unitLabels(settings.SourceProjectionCode, settings.source.metres);
  return units.coordinateLabel.find('m') != std::string_view::npos ? "Metric Plane Coordinates"
                                                                   : "English Plane Coordinates";
}

std::optional<Message> missingCoordinate(const TypedTexts& texts) {
  constexpr const char* kTitle = "Data entry error";
  if (texts.northing.empty()) {
    return Message{"Please enter a latitude or northing/Y value.", kTitle, Icon::Exclamation, "txtLatNorthY"};
  }
  if (texts.easting.empty()) {
    return Message{"Please enter a longitude or easting/X value.", kTitle, Icon::Exclamation, "txtLongEastX"};
  }
  return std::nullopt;
}

std::optional<std::string> takeTypedPoint(const TypedTexts& texts, bool latLong, text::AngleForm form,
                                          PointRecord& point) {
  if (std::optional<std::string> fault = faultOf(texts, latLong, form)) return fault;
  point.pointNumber = texts.number;
  point.description = texts.name;
  point.InNorthLat = text::leadingNumber(texts.northing);
  point.InEastLon = text::leadingNumber(texts.easting);
  point.Elevation = texts.elevation;
  takeHeight(texts.geoid, point.geoidHeight);
  takeHeight(texts.ellipsoid, point.ellipsoidHeight);
  return std::nullopt;
}

}  // namespace tovak::run
