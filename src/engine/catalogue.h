/// The coordinate systems the engine knows, and the area it serves.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace tovak::engine {

enum class Datum { nad27, nad83 };

enum class SystemKind { latLong, statePlane, utm };

struct CoordinateSystem {
  std::int16_t code;
  std::string_view name;
  Datum datum;
  SystemKind kind;
  /// The map projection on the datum's own ellipsoid, in metres, in PROJ's notation; null for latitude and longitude.
  /// It never carries a datum shift.
  const char* projection;
};

/// All systems, NAD83 before NAD27.
std::span<const CoordinateSystem> coordinateSystems();

/// The system of a code, or null.
const CoordinateSystem* findSystem(std::int16_t code);

/// Limits in degrees, west negative, the limits included.
struct AreaServed {
  double south;
  double north;
  double west;
  double east;
};

/// A source point outside it is an error: so northing and easting in the wrong order, a wrong zone or feet taken for
/// metres do not end as a plausible coordinate.
inline constexpr AreaServed kAreaServed = {.south = 41.0, .north = 51.0, .west = -100.0, .east = -86.0};

}  // namespace tovak::engine
