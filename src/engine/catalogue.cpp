#include "engine/catalogue.h"

#include <algorithm>

namespace tovak::engine {
namespace {

struct BuiltIn {
  std::int16_t code;
  const char* name;
  Datum datum;
  SystemKind kind;
  const char* projection;
};

using enum Datum;
using enum SystemKind;

// The zones by their defining constants: the State Plane Coordinate System of 1983 (NOAA Manual NOS NGS 5) and that of
// 1927 (Coast and Geodetic Survey Publication 62-4), whose false easting is 2,000,000 U.S. survey feet.
constexpr BuiltIn kSystems[] = {
    {0, "Latitude and Longitude, NAD83", nad83, latLong, ""},
    {1, "Universal Transverse Mercator zone 15, NAD83", nad83, utm, "+proj=utm +zone=15 +ellps=GRS80"},
    {2, "State plane North, NAD83", nad83, statePlane,
     "+proj=lcc +lat_1=47d02' +lat_2=48d38' +lat_0=46d30' +lon_0=-93d06' +x_0=800000 +y_0=100000 +ellps=GRS80"},
    {3, "State plane Central, NAD83", nad83, statePlane,
     "+proj=lcc +lat_1=45d37' +lat_2=47d03' +lat_0=45d00' +lon_0=-94d15' +x_0=800000 +y_0=100000 +ellps=GRS80"},
    {4, "State plane South, NAD83", nad83, statePlane,
     "+proj=lcc +lat_1=43d47' +lat_2=45d13' +lat_0=43d00' +lon_0=-94d00' +x_0=800000 +y_0=100000 +ellps=GRS80"},
    {266, "Universal Transverse Mercator zone 14, NAD83", nad83, utm, "+proj=utm +zone=14 +ellps=GRS80"},
    {267, "Universal Transverse Mercator zone 16, NAD83", nad83, utm, "+proj=utm +zone=16 +ellps=GRS80"},

    {103, "Latitude and Longitude, NAD27", nad27, latLong, ""},
    {104, "Universal Transverse Mercator zone 15, NAD27", nad27, utm, "+proj=utm +zone=15 +ellps=clrk66"},
    {105, "State plane North, NAD27", nad27, statePlane,
     "+proj=lcc +lat_1=47d02' +lat_2=48d38' +lat_0=46d30' +lon_0=-93d06' +x_0=609601.2192024384 +ellps=clrk66"},
    {106, "State plane Central, NAD27", nad27, statePlane,
     "+proj=lcc +lat_1=45d37' +lat_2=47d03' +lat_0=45d00' +lon_0=-94d15' +x_0=609601.2192024384 +ellps=clrk66"},
    {107, "State plane South, NAD27", nad27, statePlane,
     "+proj=lcc +lat_1=43d47' +lat_2=45d13' +lat_0=43d00' +lon_0=-94d00' +x_0=609601.2192024384 +ellps=clrk66"},
    {264, "Universal Transverse Mercator zone 14, NAD27", nad27, utm, "+proj=utm +zone=14 +ellps=clrk66"},
    {265, "Universal Transverse Mercator zone 16, NAD27", nad27, utm, "+proj=utm +zone=16 +ellps=clrk66"},
};

}  // namespace

std::vector<CoordinateSystem> builtInSystems() {
  std::vector<CoordinateSystem> systems;
  for (const BuiltIn& system : kSystems)
    systems.push_back({system.code, system.name, system.datum, system.kind, system.projection});
  return systems;
}

const CoordinateSystem* findSystem(const std::vector<CoordinateSystem>& systems, std::int16_t code) {
  const auto found = std::ranges::find(systems, code, &CoordinateSystem::code);
  return found == systems.end() ? nullptr : &*found;
}

}  // namespace tovak::engine
