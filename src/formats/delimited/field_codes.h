/// The vocabulary of delimited formats: which field of a point a code stands for.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "run/point_record.h"

namespace tovak::formats::delimited {

enum DelimitedFieldCode : std::int16_t {
  kFieldY = 0,
  kFieldX = 1,
  kFieldName = 2,
  kFieldNumber = 3,
  kFieldElevation = 4,
  kFieldGeoidHeight = 5,
  kFieldEllipsoidHeight = 6,
  kFieldAnythingElse = 7,
  kFieldPhysical = 8,
  kFieldOwner = 9,
  kFieldToPoint = 10,
  kFieldFeature = 11,
  kFieldFigure = 12,
  kFieldStation = 13,
  kFieldOffset = 14,
  kFieldAttribute1 = 15,
  kFieldAttribute9 = 23,
  kFieldComment = 24,
  kFieldGeopakComment = 25,
  // Only in a built-in format:
  kFieldWayPointsHead = 98,   ///< the literal "WP,DMS,"
  kFieldWayPointsTexts = 99,  ///< date and time of a WayPoints+ line, attributes 3 and 4
  kFieldNone = -1,            ///< a code that names no field
};

struct FieldKind {
  std::string_view editorName;
  std::string_view headerName;
};

/// Codes 0 to 25, which people can choose; the code is the position.
extern const std::array<FieldKind, 26> kFieldKinds;

/// The header name of codes 0 to 25, empty for others.
std::string_view fieldHeaderName(int code);

/// The text of a point that a code stands for; null for numbers, the rest of the line and codes that name no text.
std::string* textField(run::PointRecord& point, std::int16_t code);
const std::string* textField(const run::PointRecord& point, std::int16_t code);

/// The codes of a field list such as " 0~ 1~ 25~", in order. An item that is not a code from 0 to 255 is `kFieldNone`:
/// it takes up a field and is ignored.
std::vector<std::int16_t> parseFieldCodes(std::string_view fieldCodes);

}  // namespace tovak::formats::delimited
