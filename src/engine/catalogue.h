/// The coordinate systems the engine knows, and the area it serves.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "run/area_served.h"

namespace tovak::engine {

enum class Datum { nad27, nad83 };

/// "NAD27" or "NAD83".
constexpr std::string_view nameOf(Datum datum) {
  return datum == Datum::nad27 ? "NAD27" : "NAD83";
}

enum class SystemKind { latLong, statePlane, utm, county, project };

struct CoordinateSystem {
  std::int16_t code = 0;
  std::string name;
  Datum datum = Datum::nad83;
  SystemKind kind = SystemKind::latLong;
  /// The map projection on the datum's own ellipsoid, in metres, in PROJ's notation; empty for latitude and longitude.
  /// It never carries a datum shift.
  std::string projection;

  bool operator==(const CoordinateSystem&) const = default;
};

/// The systems that the engine brings with it, NAD83 before NAD27.
std::vector<CoordinateSystem> builtInSystems();

/// The system of a code, or null.
const CoordinateSystem* findSystem(const std::vector<CoordinateSystem>& systems, std::int16_t code);

using run::AreaServed;
using run::kAreaServed;

}  // namespace tovak::engine
