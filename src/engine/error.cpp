#include "engine/error.h"

#include "engine/catalogue.h"
#include "text/number.h"

namespace tovak::engine {
namespace {

struct ErrorLine {
  Error error;
  const char* text;
};

constexpr ErrorLine kErrorLines[] = {
    {Error::unknownSource, "The source projection code is not one that the conversion engine knows."},
    {Error::unknownTarget, "The target projection code is not one that the conversion engine knows."},
    {Error::unreadableText, "The projection text does not begin with a projection code and an optional M for metres."},
    {Error::noGrid, "The datum grid us_noaa_conus.tif between NAD27 and NAD83 is missing or cannot be used."},
    {Error::notComputed, "The point could not be computed: a coordinate or the elevation is out of range."},
    {Error::noCoordinates, "The point has no coordinates: its northing and easting are both 0."},
    {Error::latitudeOutside, "The latitude of the point is outside the area served"},
    {Error::longitudeOutside, "The longitude of the point is outside the area served"},
    {Error::outsideGrid, "The point is outside the datum grid us_noaa_conus.tif."},
    {Error::noProject, "No user-defined project is set up or its file cannot be used."},
    {Error::shiftTooLarge, "The datum grid shifts the point by more than 0.01 degree: that cannot be right."},
};

std::string withRange(const char* text, double from, double to) {
  std::string line = text;
  line += " (";
  text::appendFixed(line, from, 0);
  line += " to ";
  text::appendFixed(line, to, 0);
  line += " degrees). Swapped or wrong unit?";
  return line;
}

}  // namespace

std::string errorText(std::int16_t code) {
  for (const ErrorLine& line : kErrorLines) {
    if (static_cast<std::int16_t>(line.error) != code) continue;
    if (line.error == Error::latitudeOutside) return withRange(line.text, kAreaServed.south, kAreaServed.north);
    if (line.error == Error::longitudeOutside) return withRange(line.text, kAreaServed.west, kAreaServed.east);
    return line.text;
  }
  return "The conversion engine could not convert the point.";
}

}  // namespace tovak::engine
