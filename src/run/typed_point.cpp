#include "run/typed_point.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "run/labels.h"
#include "run/projection_code.h"
#include "text/number.h"

namespace tovak::run {
namespace {

constexpr int kHeightDecimals = 4;

constexpr std::string_view kNorthingBox = "txtLatNorthY";
constexpr std::string_view kEastingBox = "txtLongEastX";

struct TypingFault {
  std::string text;
  std::string_view box;
};

/// The first of two reasons why a pair cannot be used, with the box it concerns.
std::optional<TypingFault> firstFault(std::optional<std::string> northing, std::optional<std::string> easting) {
  if (northing) return TypingFault{std::move(*northing), kNorthingBox};
  if (easting) return TypingFault{std::move(*easting), kEastingBox};
  return std::nullopt;
}

struct CoordinateNames {
  std::string_view northing;
  std::string_view easting;
};

constexpr CoordinateNames kLengths = {"northing/Y", "easting/X"};

struct TypedAngle {
  std::string_view name;
  double largest;
  std::string_view words;
};

constexpr TypedAngle kLatitude = {"latitude", 90.0, "90"};
constexpr TypedAngle kLongitude = {"longitude", 180.0, "180"};

std::string quoted(std::string_view name, const std::string& text) {
  return "The " + std::string(name) + " \"" + text + "\" ";
}

std::optional<std::string> notANumber(std::string_view name, const std::string& text) {
  const std::optional<double> value = text::strictNumber(text);
  if (value && std::isfinite(*value)) return std::nullopt;
  return quoted(name, text) + "is not a number.";
}

/// Why the text is not an angle within the limit.
std::optional<std::string> notAnAngle(const std::string& text, const text::AngleReading& angle,
                                      const TypedAngle& kind) {
  const bool number = text.find_first_of("0123456789") != std::string::npos && !angle.textBehind;
  if (!number || angle.fault == text::AngleFault::TooLarge) return quoted(kind.name, text) + "is not a number.";
  if (angle.fault == text::AngleFault::NotBelow60) {
    return quoted(kind.name, text) + "has minutes or seconds that are not below 60.";
  }
  if (angle.fault == text::AngleFault::OtherHemisphere) return quoted(kind.name, text) + "is not north or west.";
  if (std::fabs(angle.degrees) <= kind.largest) return std::nullopt;
  return quoted(kind.name, text) + "is more than " + std::string(kind.words) + " degrees.";
}

/// Fills the coordinates, or says why the texts are not coordinates.
std::optional<TypingFault> takeTypedAngles(const TypedTexts& texts, text::AngleForm form, PointRecord& point) {
  std::string scratch;
  const text::AngleReading latitude = text::readAngle(texts.northing, form, text::AngleAxis::Latitude, scratch);
  const text::AngleReading longitude = text::readAngle(texts.easting, form, text::AngleAxis::Longitude, scratch);
  std::optional<TypingFault> fault =
      firstFault(notAnAngle(texts.northing, latitude, kLatitude), notAnAngle(texts.easting, longitude, kLongitude));
  DoubtFlags none;  // doubtful input is refused at the keyboard
  if (!fault) takeAngles(point, latitude, longitude, none);
  return fault;
}

std::optional<TypingFault> takeTypedLengths(const TypedTexts& texts, PointRecord& point) {
  std::optional<TypingFault> fault =
      firstFault(notANumber(kLengths.northing, texts.northing), notANumber(kLengths.easting, texts.easting));
  if (fault) return fault;
  point.InNorthLat = text::leadingNumber(texts.northing);
  point.InEastLon = text::leadingNumber(texts.easting);
  return std::nullopt;
}

std::optional<TypingFault> heightFault(const TypedTexts& texts) {
  const std::pair<double, std::string_view> heights[] = {
      {texts.elevation, "txtZC"}, {texts.geoid, "txtHG"}, {texts.ellipsoid, "txtHE"}};
  for (const auto& [height, box] : heights) {
    if (!std::isfinite(height)) return TypingFault{"A height is too large to be a number.", box};
  }
  return std::nullopt;
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
    return Message{"Please enter a latitude or northing/Y value.", kTitle, Icon::Exclamation,
                   std::string(kNorthingBox)};
  }
  if (texts.easting.empty()) {
    return Message{"Please enter a longitude or easting/X value.", kTitle, Icon::Exclamation, std::string(kEastingBox)};
  }
  return std::nullopt;
}

text::Result<PointRecord> typedPoint(const TypedTexts& texts, bool latLong, text::AngleForm form,
                                     std::string_view* faultyBox) {
  PointRecord point;
  resetPoint(point);
  std::optional<TypingFault> fault = heightFault(texts);
  if (!fault) fault = latLong ? takeTypedAngles(texts, form, point) : takeTypedLengths(texts, point);
  if (fault) {
    if (faultyBox != nullptr) *faultyBox = fault->box;
    return text::Result<PointRecord>::failure(fault->text);
  }
  point.pointNumber = texts.number;
  point.description = texts.name;
  point.Elevation = texts.elevation;
  takeHeight(texts.geoid, point.geoidHeight);
  takeHeight(texts.ellipsoid, point.ellipsoidHeight);
  return point;
}

std::string nextTypedNumber(std::string number) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const auto lastOther = std::find_if_not(number.rbegin(), number.rend(), isDigit);
  const auto digits = number.size() - static_cast<std::size_t>(number.rend() - lastOther);
  for (std::size_t place = number.size(); place-- > number.size() - digits;) {
    if (++number[place] <= '9') return number;
    number[place] = '0';
  }
  if (digits != 0) number.insert(number.size() - digits, 1, '1');
  return number;
}

}  // namespace tovak::run
