#include "run/place.h"

#include "run/projection_box.h"
#include "run/projection_code.h"

namespace tovak::run {

PlaceFinder::PlaceFinder(ConversionEngine& engine, const RunSettings& settings) : engine_(engine), settings_(settings) {
  const std::int16_t code = settings.SourceProjectionCode;
  // A project's datum is not known here; the difference between the two datums is too small to be seen.
  const bool nad27 = isNad27(code) && code != kUserDefinedProject;
  system_ = projectionText(nad27 ? kLatLongNad27 : kLatLongNad83, false);
}

std::optional<Place> PlaceFinder::placeOf(double northing, double easting) {
  Place place = {.latitude = northing, .longitude = easting};
  double elevation = 0.0;
  if (isLatLong(settings_.SourceProjectionCode) ||
      engine_.TovakVert(northing, easting, elevation, settings_.source.projectionText, place.latitude, place.longitude,
                        elevation, system_, info_) < 1) {
    return place;
  }
  return std::nullopt;
}

}  // namespace tovak::run
