/// Convergence and scale factor.
#pragma once

#include <optional>

#include "engine/geographic.h"
#include "engine/proj_objects.h"

namespace tovak::engine {

struct GridFactors {
  /// Decimal degrees from true north to grid north, clockwise positive: positive east of the central meridian.
  double convergence = 0.0;
  /// Length on the grid divided by length on the ellipsoid.
  double scale = 1.0;
};

/// The factors of any projection by PROJ, which takes several times as long as the projection itself. `projection` is
/// an operation of one map projection: radians in, metres out, neither pipeline nor coordinate reference system, of
/// which PROJ gives wrong factors. Nothing where the projection has no factors. The scale of a projection that is not
/// conformal is the mean of its directions, the square root of the areal scale.
std::optional<GridFactors> factorsByProj(PJconsts* projection, const Geographic& point);

}  // namespace tovak::engine
