#include "engine/grid_factors.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include <proj.h>

#include "engine/catalogue.h"

namespace tovak::engine {
namespace {

std::optional<GridFactors> factorsByProj(PJconsts* projection, const Geographic& point) {
  const PJ_FACTORS factors = proj_factors(projection, proj_coord(point.longitude, point.latitude, 0.0, HUGE_VAL));
  const bool computed = proj_errno(projection) == 0 && factors.areal_scale > 0.0;
  proj_errno_reset(projection);
  if (!computed) return std::nullopt;
  return GridFactors{.convergence = factors.meridian_convergence * kDegreesPerRadian,
                     .scale = std::sqrt(factors.areal_scale)};
}

/// A projection's defining constants, by the names that PROJ has from the EPSG registry.
class Constants {
 public:
  Constants(pj_ctx* context, PJconsts* projection) : context_(context) {
    const char* const definition = proj_pj_info(projection).definition;
    system_ = makeOperation(context, (std::string(definition) + " type=crs").c_str());
    if (system_ != nullptr && proj_get_type(system_.get()) == PJ_TYPE_BOUND_CRS)
      system_.reset(proj_get_source_crs(context, system_.get()));  // less the datum shift
    if (system_ != nullptr) conversion_.reset(proj_crs_get_coordoperation(context, system_.get()));
  }

  /// The method's number in the EPSG registry, empty where there is none.
  std::string_view method() const {
    const char* code = nullptr;
    if (conversion_ != nullptr)
      proj_coordoperation_get_method_info(context_, conversion_.get(), nullptr, nullptr, &code);
    return code == nullptr ? std::string_view() : code;
  }

  /// Radians or a factor; not a number where there is no constant of that name.
  double operator[](const char* name) const {
    const int index = proj_coordoperation_get_param_index(context_, conversion_.get(), name);
    double value = std::numeric_limits<double>::quiet_NaN();
    double unit = 1.0;
    if (index >= 0) {
      proj_coordoperation_get_param(context_, conversion_.get(), index, nullptr, nullptr, nullptr, &value, nullptr,
                                    &unit, nullptr, nullptr, nullptr, nullptr);
    }
    return value * unit;
  }

  double flattening() const {
    const ProjOperation ellipsoid(proj_get_ellipsoid(context_, system_.get()));
    double major = std::numeric_limits<double>::quiet_NaN();
    double minor = major;
    if (ellipsoid != nullptr)
      proj_ellipsoid_get_parameters(context_, ellipsoid.get(), &major, &minor, nullptr, nullptr);
    return (major - minor) / major;
  }

 private:
  pj_ctx* context_;
  ProjOperation system_;
  ProjOperation conversion_;
};

FactorFormula lambertOneParallel(const Constants& constants) {
  const double parallel = constants["Latitude of natural origin"];
  return LambertFactors({.centralMeridian = constants["Longitude of natural origin"],
                         .firstParallel = parallel,
                         .secondParallel = parallel,
                         .scale = constants["Scale factor at natural origin"]},
                        constants.flattening());
}

FactorFormula lambertTwoParallels(const Constants& constants) {
  return LambertFactors({.centralMeridian = constants["Longitude of false origin"],
                         .firstParallel = constants["Latitude of 1st standard parallel"],
                         .secondParallel = constants["Latitude of 2nd standard parallel"]},
                        constants.flattening());
}

FactorFormula transverseMercator(const Constants& constants) {
  return TransverseMercatorFactors({.centralMeridian = constants["Longitude of natural origin"],
                                    .scale = constants["Scale factor at natural origin"]},
                                   constants.flattening());
}

struct Method {
  std::string_view code;
  FactorFormula (*make)(const Constants&);
};

constexpr Method kMethods[] = {
    {"9801", lambertOneParallel},
    {"9802", lambertTwoParallels},
    {"9807", transverseMercator},
};

bool agree(const std::optional<GridFactors>& one, const std::optional<GridFactors>& other) {
  constexpr double kConvergence = 0.001 / 3600.0;
  constexpr double kScale = 1e-9;
  return one && other && std::fabs(one->convergence - other->convergence) < kConvergence &&
         std::fabs(one->scale - other->scale) < kScale;
}

/// In the midst of the area served and at its corners. PROJ reads more into a definition than the registry's constants
/// hold, such as another algorithm or a further scale factor, and that shows at points only.
bool agreesWithProj(const FactorFormula& formula, PJconsts* projection) {
  const AreaServed& area = kAreaServed;
  const struct {
    double latitude, longitude;
  } points[] = {{(area.south + area.north) / 2.0, (area.west + area.east) / 2.0},
                {area.south, area.west},
                {area.south, area.east},
                {area.north, area.west},
                {area.north, area.east}};
  return std::ranges::all_of(points, [&](const auto& degrees) {
    const Geographic point = {.latitude = degrees.latitude * kRadiansPerDegree,
                              .longitude = degrees.longitude * kRadiansPerDegree};
    return agree(factorsAt(formula, point), factorsByProj(projection, point));
  });
}

}  // namespace

FactorFormula makeFactorFormula(pj_ctx* context, PJconsts* projection) {
  const Constants constants(context, projection);
  const auto* const method = std::ranges::find(kMethods, constants.method(), &Method::code);
  if (method != std::end(kMethods)) {
    const FactorFormula formula = method->make(constants);
    if (agreesWithProj(formula, projection)) return formula;
  }
  return projection;
}

std::optional<GridFactors> factorsAt(const FactorFormula& formula, const Geographic& point) {
  if (const auto* const lambert = std::get_if<LambertFactors>(&formula)) return lambert->at(point);
  if (const auto* const mercator = std::get_if<TransverseMercatorFactors>(&formula)) return mercator->at(point);
  return factorsByProj(std::get<PJconsts*>(formula), point);
}

}  // namespace tovak::engine
