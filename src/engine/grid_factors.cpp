#include "engine/grid_factors.h"

#include <cmath>

#include <proj.h>

namespace tovak::engine {

std::optional<GridFactors> factorsByProj(PJconsts* projection, const Geographic& point) {
  const PJ_FACTORS factors = proj_factors(projection, proj_coord(point.longitude, point.latitude, 0.0, HUGE_VAL));
  const bool computed = proj_errno(projection) == 0 && factors.areal_scale > 0.0;
  proj_errno_reset(projection);
  if (!computed) return std::nullopt;
  return GridFactors{.convergence = factors.meridian_convergence * kDegreesPerRadian,
                     .scale = std::sqrt(factors.areal_scale)};
}

}  // namespace tovak::engine
