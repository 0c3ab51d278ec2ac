#include "formats/delimited/field_codes.h"

#include <algorithm>
#include <cstddef>

#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::delimited {

const std::array<FieldKind, 26> kFieldKinds = {{
    {"YCoord-Northing-Latitude", "Y Coordinate"},
    {"XCoord/Easting/Longitude", "X Coordinate"},
    {"Name", "Point Name"},
    {"Number", "Point Number"},
    {"Elevation", "Elevation"},
    {"GeoidHeight", "Geoid Height"},
    {"EllipsoidHeight", "Ellipsoid Height"},
    {"AnythingElse", "Anything Else"},
    {"Physical", "PH"},
    {"Owner", "OW"},
    {"ToPoint", "OD"},
    {"Feature", "FE"},
    {"Figure", "FG"},
    {"Station", "Station"},
    {"Offset", "Offset"},
    {"Attribute1", "A1"},
    {"Attribute2", "A2"},
    {"Attribute3", "A3"},
    {"Attribute4", "A4"},
    {"Attribute5", "A5"},
    {"Attribute6", "A6"},
    {"Attribute7", "A7"},
    {"Attribute8", "A8"},
    {"Attribute9", "A9"},
    {"Comment", "Comment"},
    {"GeopakComment", "Geopak Comment"},
}};

std::string_view fieldHeaderName(int code) {
  const bool known = code >= 0 && code < static_cast<int>(kFieldKinds.size());
  return known ? kFieldKinds[static_cast<std::size_t>(code)].headerName : std::string_view();
}

namespace {

using Point = run::PointRecord;
using TextMember = std::string Point::*;

constexpr std::array<TextMember, kFieldOffset + 1> kTextMembers = {nullptr,
                                                                   nullptr,
                                                                   &Point::description,
                                                                   &Point::pointNumber,
                                                                   nullptr,
                                                                   &Point::geoidHeight,
                                                                   &Point::ellipsoidHeight,
                                                                   nullptr,
                                                                   &Point::phField,
                                                                   &Point::owField,
                                                                   &Point::odField,
                                                                   &Point::featureCode,
                                                                   &Point::figure,
                                                                   &Point::station,
                                                                   &Point::offset};

}  // namespace

std::string* textField(Point& point, std::int16_t code) {
  if (code == kFieldComment || code == kFieldGeopakComment) return &point.comment;
  if (code >= kFieldAttribute1 && code <= kFieldAttribute9) {
    return &point.attributes[static_cast<std::size_t>(code - kFieldAttribute1)];
  }
  if (code < 0 || code > kFieldOffset) return nullptr;
  const TextMember member = kTextMembers[static_cast<std::size_t>(code)];
  return member == nullptr ? nullptr : &(point.*member);
}

const std::string* textField(const Point& point, std::int16_t code) {
  return textField(const_cast<Point&>(point), code);
}

std::vector<std::int16_t> parseFieldCodes(std::string_view fieldCodes) {
  std::vector<std::int16_t> codes;
  // Blanks after the last code are not a code.
  while (!text::trimBlanks(fieldCodes).empty()) {
    const std::size_t end = std::min(fieldCodes.find('~'), fieldCodes.size());
    const text::LeadingNumber number = text::parseLeadingNumber(fieldCodes.substr(0, end));
    const bool code = number.length > 0 && number.value >= 0 && number.value <= 255;
    codes.push_back(code ? static_cast<std::int16_t>(text::roundHalfEven(number.value)) : std::int16_t{kFieldNone});
    fieldCodes.remove_prefix(std::min(end + 1, fieldCodes.size()));
  }
  return codes;
}

}  // namespace tovak::formats::delimited
