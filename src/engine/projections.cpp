#include "engine/projections.h"

#include <utility>
#include <variant>

namespace tovak::engine {

Projection::Projection(pj_ctx* context, ProjOperation operation)
    : operation_(std::move(operation)), form_(findClosedForm(context, operation_.get())) {}

PlanePoint Projection::project(const Geographic& point) const {
  if (const auto* const lambert = std::get_if<LambertConic>(&form_)) return lambert->project(point);
  if (const auto* const mercator = std::get_if<TransverseMercator>(&form_)) return mercator->project(point);
  return engine::project(operation_.get(), point);
}

PlanePoint Projection::project(const Geographic& point, std::optional<GridFactors>& factors) const {
  if (const auto* const lambert = std::get_if<LambertConic>(&form_)) return lambert->project(point, &factors.emplace());
  if (const auto* const mercator = std::get_if<TransverseMercator>(&form_))
    return mercator->project(point, &factors.emplace());
  factors = factorsByProj(operation_.get(), point);
  return engine::project(operation_.get(), point);
}

// Points too far off for the closed form are left to PROJ.
Geographic Projection::unproject(const PlanePoint& point) const {
  Geographic geographic;
  if (const auto* const lambert = std::get_if<LambertConic>(&form_)) {
    geographic = lambert->unproject(point);
    if (isFinite(geographic)) return geographic;
  } else if (const auto* const mercator = std::get_if<TransverseMercator>(&form_)) {
    geographic = mercator->unproject(point);
    if (isFinite(geographic)) return geographic;
  }
  return engine::unproject(operation_.get(), point);
}

Error Projection::takeError() const {
  return engine::takeError(operation_.get());
}

const Projection* Projections::find(pj_ctx* context, const CoordinateSystem& system) {
  if (const auto found = projections_.find(system.projection); found != projections_.end()) return &found->second;
  ProjOperation operation = makeOperation(context, system.projection.c_str());
  if (operation == nullptr) return nullptr;
  return &projections_.try_emplace(system.projection, context, std::move(operation)).first->second;
}

PlanePoint project(PJconsts* projection, Geographic from) {
  const ProjPair pair = transform(projection, Direction::forward, {.x = from.longitude, .y = from.latitude});
  return {.northing = pair.y, .easting = pair.x};
}

Geographic unproject(PJconsts* projection, PlanePoint from) {
  const ProjPair pair = transform(projection, Direction::inverse, {.x = from.easting, .y = from.northing});
  return {.latitude = pair.y, .longitude = pair.x};
}

}  // namespace tovak::engine
