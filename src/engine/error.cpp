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
    {Error::unreadableText,
     "The projection text cannot be read: it must give a projection code, followed by M when the unit is the metre."},
    {Error::noGrid,
     "The datum grid us_noaa_conus.tif, without which nothing is converted between NAD27 and NAD83, was not found or "
     "cannot be read. Get it with \"projsync --file us_noaa_conus.tif\" or copy it into the folder \"grids\" of the "
     "data folder, then start the program again."},
    {Error::notComputed, "The point could not be computed: a coordinate or the elevation is out of range."},
    {Error::latitudeOutside, "The latitude of the point is outside the area served"},
    {Error::longitudeOutside, "The longitude of the point is outside the area served"},
    {Error::outsideGrid, "The point is outside the datum grid us_noaa_conus.tif."},
    {Error::noProject, "No user-defined project is set up, or its file cannot be used."},
};

std::string withRange(const char* text, double from, double to) {
  std::string line = text;
  line += ", ";
  text::appendFixed(line, from, 0);
  line += " to ";
  text::appendFixed(line, to, 0);
  line += " degrees. Are northing and easting in order, and projection and units the right ones?";
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
