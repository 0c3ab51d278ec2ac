/// Positions in the lists of source and target formats, counted from 0. The names serve the rules that single out a
/// format; everything else goes through the cards of the two format tables.
#pragma once

#include <cstdint>

namespace tovak::run::source {
enum Index : std::int16_t {
  Keyboard = 0,
  CommaDelimited = 1,
  Vesko80Column = 2,
  BlueBook = 3,
  Sdms = 4,
  CoordsLog = 5,
  CoordsLogNumberInDescription = 6,
  GeopakPrintPoints = 7,
  GeodeticsSpecial = 8,
  KrvBatch = 9,
  LmoBatch = 10,
  Maptech = 11,
  WayPointsPlus = 12,
  GeodeticCsv = 13,
};

/// The agency's databases, which are not converted point by point.
constexpr bool isAgency(std::int16_t format) {
  return format >= GeodeticsSpecial && format <= LmoBatch;
}
}  // namespace tovak::run::source

namespace tovak::run::target {
enum Index : std::int16_t {
  ScreenOnly = 0,
  CommaDelimited = 1,
  Vesko80Column = 2,
  BlueBook = 3,
  Sdms = 4,
  TrimbleWaypoints = 5,
  DeLorme = 6,
  GeodimeterControl = 7,
  GeodimeterAlignment = 8,
  GeodeticsSpecial = 9,
  KrvBatch = 10,
  LmoBatch = 11,
  Maptech = 12,
  WayPointsPlus = 13,
  GeopakXy = 14,
  GeopakNe = 15,
  Kml = 16,
  GeoJson = 17,
  LandXml = 18,
  Dxf = 19,
};

constexpr bool isAgency(std::int16_t format) {
  return format >= GeodeticsSpecial && format <= LmoBatch;
}
}  // namespace tovak::run::target
