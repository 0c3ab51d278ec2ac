#include "engine/closed_form.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include <proj.h>

#include "engine/catalogue.h"
#include "engine/projections.h"

namespace tovak::engine {
namespace {

/// A projection's defining constants, under the names that PROJ takes from the EPSG registry.
class Constants {
 public:
  Constants(pj_ctx* context, PJconsts* projection) : context_(context) {
    const char* const definition = proj_pj_info(projection).definition;
    system_ = makeOperation(context, (std::string(definition) + " type=crs").c_str());
    if (system_ != nullptr) conversion_.reset(proj_crs_get_coordoperation(context, system_.get()));
  }

  /// The method's number in the EPSG registry, empty where there is none.
  std::string_view method() const {
    const char* code = nullptr;
    if (conversion_ != nullptr)
      proj_coordoperation_get_method_info(context_, conversion_.get(), nullptr, nullptr, &code);
    return code == nullptr ? std::string_view() : code;
  }

  /// Metres or a factor; not a number where there is no constant of that name.
  double operator[](const char* name) const {
    const Constant constant = find(name);
    return constant.value * constant.unit;
  }

  /// Radians. Degrees are not converted with the registry's radian, whose fifteen digits would move a meridian by 2e-9
  /// m.
  double angle(const char* name) const {
    const Constant constant = find(name);
    const bool degrees = std::fabs(constant.unit - kRadiansPerDegree) < 1e-12;
    return constant.value * (degrees ? kRadiansPerDegree : constant.unit);
  }

  Ellipsoid ellipsoid() const {
    const ProjOperation ellipsoid(proj_get_ellipsoid(context_, system_.get()));
    double major = std::numeric_limits<double>::quiet_NaN();
    double minor = major;
    double inverse = major;
    if (ellipsoid != nullptr)
      proj_ellipsoid_get_parameters(context_, ellipsoid.get(), &major, &minor, nullptr, &inverse);
    return {.semiMajorAxis = major, .flattening = inverse > 0.0 ? 1.0 / inverse : (major - minor) / major};
  }

 private:
  struct Constant {
    double value = std::numeric_limits<double>::quiet_NaN();
    double unit = 1.0;
  };

  Constant find(const char* name) const {
    Constant found;
    const int index = proj_coordoperation_get_param_index(context_, conversion_.get(), name);
    if (index >= 0) {
      proj_coordoperation_get_param(context_, conversion_.get(), index, nullptr, nullptr, nullptr, &found.value,
                                    nullptr, &found.unit, nullptr, nullptr, nullptr, nullptr);
    }
    return found;
  }

  pj_ctx* context_;
  ProjOperation system_;
  ProjOperation conversion_;
};

ClosedForm lambertOneParallel(const Constants& constants) {
  const double parallel = constants.angle("Latitude of natural origin");
  return LambertConic(
      {.ellipsoid = constants.ellipsoid(),
       .origin = {.latitude = parallel, .longitude = constants.angle("Longitude of natural origin")},
       .firstParallel = parallel,
       .secondParallel = parallel,
       .scale = constants["Scale factor at natural origin"],
       .falseOrigin = {.northing = constants["False northing"], .easting = constants["False easting"]}});
}

ClosedForm lambertTwoParallels(const Constants& constants) {
  return LambertConic({.ellipsoid = constants.ellipsoid(),
                       .origin = {.latitude = constants.angle("Latitude of false origin"),
                                  .longitude = constants.angle("Longitude of false origin")},
                       .firstParallel = constants.angle("Latitude of 1st standard parallel"),
                       .secondParallel = constants.angle("Latitude of 2nd standard parallel"),
                       .falseOrigin = {.northing = constants["Northing at false origin"],
                                       .easting = constants["Easting at false origin"]}});
}

ClosedForm transverseMercator(const Constants& constants) {
  return TransverseMercator(
      {.ellipsoid = constants.ellipsoid(),
       .origin = {.latitude = constants.angle("Latitude of natural origin"),
                  .longitude = constants.angle("Longitude of natural origin")},
       .scale = constants["Scale factor at natural origin"],
       .falseOrigin = {.northing = constants["False northing"], .easting = constants["False easting"]}});
}

struct Method {
  std::string_view code;
  ClosedForm (*make)(const Constants&);
};

constexpr Method kMethods[] = {
    {"9801", lambertOneParallel},
    {"9802", lambertTwoParallels},
    {"9807", transverseMercator},
};

constexpr double kTolerance = 2e-8;  // metres

bool agree(const PlanePoint& one, const PlanePoint& other) {
  return std::fabs(one.northing - other.northing) < kTolerance && std::fabs(one.easting - other.easting) < kTolerance;
}

bool agree(const Geographic& one, const Geographic& other) {
  constexpr double kEarthRadius = 6'370'000.0;
  constexpr double kAngle = kTolerance / kEarthRadius;
  return std::fabs(one.latitude - other.latitude) < kAngle &&
         std::fabs(one.longitude - other.longitude) * std::cos(other.latitude) < kAngle;
}

bool agree(const GridFactors& one, const std::optional<GridFactors>& other) {
  constexpr double kConvergence = 0.001 / 3600.0;
  constexpr double kScale = 1e-9;
  return other && std::fabs(one.convergence - other->convergence) < kConvergence &&
         std::fabs(one.scale - other->scale) < kScale;
}

template <typename Form>
bool agreesWithProj(const Form& form, PJconsts* projection, const Geographic& point, bool withFactors) {
  GridFactors factors;
  const PlanePoint plane = project(projection, point);
  return agree(form.project(point, &factors), plane) && agree(form.unproject(plane), unproject(projection, plane)) &&
         (!withFactors || agree(factors, factorsByProj(projection, point)));
}

/// At every whole degree of the area served. A definition may hold more than the registry's constants show, such as
/// another algorithm or a further scale factor; only a comparison of points finds that. The factors, which PROJ is slow
/// to compute, are compared only in the middle and at the corners: they follow from the same constants.
template <typename Form>
bool agreesWithProj(const Form& form, PJconsts* projection) {
  constexpr AreaServed area = kAreaServed;
  constexpr int kRows = static_cast<int>(area.north - area.south);
  constexpr int kColumns = static_cast<int>(area.east - area.west);
  for (int row = 0; row <= kRows; ++row) {
    for (int column = 0; column <= kColumns; ++column) {
      const bool middle = row == kRows / 2 && column == kColumns / 2;
      const bool corner = row % kRows == 0 && column % kColumns == 0;
      const Geographic point = {.latitude = (area.south + row) * kRadiansPerDegree,
                                .longitude = (area.west + column) * kRadiansPerDegree};
      if (!agreesWithProj(form, projection, point, middle || corner)) return false;
    }
  }
  return true;
}

bool agreesWithProj(std::monostate /*none*/, PJconsts* /*projection*/) {
  return false;
}

}  // namespace

ClosedForm findClosedForm(pj_ctx* context, PJconsts* projection) {
  const Constants constants(context, projection);
  const auto* const method = std::ranges::find(kMethods, constants.method(), &Method::code);
  if (method == std::end(kMethods)) return {};
  const ClosedForm found = method->make(constants);
  const bool agrees = std::visit([&](const auto& form) { return agreesWithProj(form, projection); }, found);
  return agrees ? found : ClosedForm();
}

}  // namespace tovak::engine
