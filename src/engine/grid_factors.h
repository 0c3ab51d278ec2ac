/// Convergence and scale factor of any projection.
#pragma once

#include <optional>
#include <variant>

#include "engine/conformal_factors.h"
#include "engine/geographic.h"
#include "engine/proj_objects.h"

namespace tovak::engine {

/// How the factors of one projection are computed: in closed form, or by PROJ, which takes several times the time of
/// the projection itself.
using FactorFormula = std::variant<LambertFactors, TransverseMercatorFactors, PJconsts*>;

/// The formula for `projection`, an operation of one map projection: radians in, metres out, neither pipeline nor
/// coordinate reference system, of which PROJ gives wrong factors. Transverse Mercator (UTM among it) and Lambert's
/// conformal conic projection with one and with two standard parallels are computed in closed form, as far as that
/// agrees with PROJ over the area served; all else, and what is defined in an unusual way, by PROJ. The formula lives
/// no longer than `projection`.
FactorFormula makeFactorFormula(pj_ctx* context, PJconsts* projection);

/// Nothing where the projection has no factors. The scale of a projection that is not conformal is the mean of its
/// directions, the square root of the areal scale.
std::optional<GridFactors> factorsAt(const FactorFormula& formula, const Geographic& point);

}  // namespace tovak::engine
