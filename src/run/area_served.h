/// The part of the world that the program converts points in.
#pragma once

namespace tovak::run {

/// Limits in degrees, west negative; the limits themselves are inside.
struct AreaServed {
  double south;
  double north;
  double west;
  double east;
};

/// A source point outside it is an error, so that swapped coordinates, a wrong zone or feet taken for metres do not
/// turn into plausible coordinates.
inline constexpr AreaServed kAreaServed = {.south = 41.0, .north = 51.0, .west = -100.0, .east = -86.0};

}  // namespace tovak::run
