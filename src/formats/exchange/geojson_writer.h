/// Writing GeoJSON (RFC 7946): points with their attributes for geographic information systems.
#pragma once

#include <memory>

#include "run/formats.h"

namespace tovak::formats::exchange {

/// A writer of one feature collection, a feature on each line. A position is longitude, latitude (decimal degrees with
/// eight decimals) and, where the point has one, the elevation in metres in the run's accuracy. The properties are
/// number, description, featureCode, the coordinates of the source (northing and easting with three decimals, or
/// latitude and longitude with nine), their system and unit, and for plane coordinates convergence and scaleFactor of
/// that system at the point. The identification line is the collection's description. The target has to be latitude
/// and longitude on NAD83, in metres.
std::unique_ptr<run::PointWriter> makeGeoJsonWriter(const run::TargetContext& context);

}  // namespace tovak::formats::exchange
