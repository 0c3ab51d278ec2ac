/// The map projections of the catalogue: between geographic and plane coordinates of one datum.
#pragma once

#include <cmath>
#include <map>
#include <optional>
#include <string>

#include "engine/catalogue.h"
#include "engine/error.h"
#include "engine/geographic.h"
#include "engine/grid_factors.h"
#include "engine/proj_objects.h"

namespace tovak::engine {

/// Metres.
struct PlanePoint {
  double northing = 0.0;
  double easting = 0.0;
};

/// PROJ's objects for the systems in use, each made when it is first asked for.
class Projections {
 public:
  /// The operation of a system that has a projection; null when PROJ cannot make it. It lives as long
  /// as this object.
  PJconsts* find(pj_ctx* context, const CoordinateSystem& system);

  /// The formula for convergence and scale factor of a system whose operation has been found. It lives as long as this
  /// object.
  const FactorFormula* findFactors(pj_ctx* context, const CoordinateSystem& system);

 private:
  struct Projection {
    ProjOperation operation;
    std::optional<FactorFormula> factors;
  };

  std::map<std::string, Projection> projections_;  // by their definition: a project's may change
};

/// Both give a result that is not finite where the projection is not defined; `takeError` then tells why.
PlanePoint project(PJconsts* projection, Geographic from);
Geographic unproject(PJconsts* projection, PlanePoint from);

inline bool isFinite(const PlanePoint& point) {
  return std::isfinite(point.northing) && std::isfinite(point.easting);
}

}  // namespace tovak::engine
