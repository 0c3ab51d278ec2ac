/// What can go wrong with a point, by the codes that `TovakVert` returns.
#pragma once

#include <cstdint>
#include <string>

namespace tovak::engine {

enum class Error : std::int16_t {
  none = 0,
  unknownSource = 1,
  unknownTarget = 2,
  unreadableText = 3,
  noGrid = 4,
  notComputed = 5,    ///< PROJ could not compute the point, or a number that came in or out is not finite
  noCoordinates = 6,  ///< northing and easting are both 0
  latitudeOutside = 7,
  longitudeOutside = 8,
  outsideGrid = 9,
  noProject = 10,
  shiftTooLarge = 11,
};

/// The error in words, for any code; an unknown code gets a general text. The agency's comma separated files take these
/// texts, so they have no commas and fewer than 100 characters.
std::string errorText(std::int16_t code);

}  // namespace tovak::engine
