#include "engine/projections.h"

namespace tovak::engine {

PJconsts* Projections::find(pj_ctx* context, const CoordinateSystem& system) {
  ProjOperation& operation = projections_[system.projection].operation;
  if (operation == nullptr) operation = makeOperation(context, system.projection.c_str());
  return operation.get();
}

const FactorFormula* Projections::findFactors(pj_ctx* context, const CoordinateSystem& system) {
  Projection& projection = projections_[system.projection];
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
