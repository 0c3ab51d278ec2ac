/// The map projections of the catalogue: between geographic and plane coordinates of one datum.
#pragma once

#include <cmath>
#include <vector>

#include "engine/catalogue.h"
#include "engine/error.h"
#include "engine/proj_objects.h"

namespace tovak::engine {

/// Radians, north and east positive.
struct Geographic {
  double latitude = 0.0;
  double longitude = 0.0;
};

/// Metres.
struct PlanePoint {
  double northing = 0.0;
  double easting = 0.0;
};

/// PROJ's objects for the systems in use, each made when it is first asked for.
class Projections {
 public:
  Projections();

  /// The operation of a system of the catalogue that has a projection; null when PROJ cannot make it. It lives as long
  /// as this object.
  PJconsts* find(pj_ctx* context, const CoordinateSystem& system);

 private:
  std::vector<ProjOperation> operations_;  // as in the catalogue
};

/// Both give a result that is not finite where the projection is not defined; `takeError` then tells why.
PlanePoint project(PJconsts* projection, Geographic from);
Geographic unproject(PJconsts* projection, PlanePoint from);

inline bool isFinite(const Geographic& point) {
  return std::isfinite(point.latitude) && std::isfinite(point.longitude);
}
inline bool isFinite(const PlanePoint& point) {
  return std::isfinite(point.northing) && std::isfinite(point.easting);
}

}  // namespace tovak::engine
