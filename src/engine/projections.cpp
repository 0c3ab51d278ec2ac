#include "engine/projections.h"

namespace tovak::engine {

Projections::Projections() : projections_(coordinateSystems().size()) {}

Projections::Projection& Projections::of(const CoordinateSystem& system) {
  return projections_[static_cast<std::size_t>(&system - coordinateSystems().data())];
}

PJconsts* Projections::find(pj_ctx* context, const CoordinateSystem& system) {
  ProjOperation& operation = of(system).operation;
  if (operation == nullptr) operation = makeOperation(context, system.projection);
  return operation.get();
}

const FactorFormula* Projections::findFactors(pj_ctx* context, const CoordinateSystem& system) {
  Projection& projection = of(system);
  if (!projection.factors) projection.factors = makeFactorFormula(context, projection.operation.get());
  return &*projection.factors;
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
