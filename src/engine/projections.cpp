#include "engine/projections.h"

namespace tovak::engine {

Projections::Projections() : operations_(coordinateSystems().size()) {}

PJconsts* Projections::find(pj_ctx* context, const CoordinateSystem& system) {
  ProjOperation& operation = operations_[static_cast<std::size_t>(&system - coordinateSystems().data())];
  if (operation == nullptr) operation = makeOperation(context, system.projection);
  return operation.get();
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
