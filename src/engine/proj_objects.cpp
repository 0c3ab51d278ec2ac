#include "engine/proj_objects.h"

#include <cmath>

#include <proj.h>

namespace tovak::engine {

void ProjContextDeleter::operator()(pj_ctx* context) const noexcept {
  proj_context_destroy(context);
}

void ProjOperationDeleter::operator()(PJconsts* operation) const noexcept {
  proj_destroy(operation);
}

ProjContext openProj(std::string& reason) {
  ProjContext context(proj_context_create());
  if (context.get() == nullptr) {
    reason = "PROJ could not be started.";
    return {};
  }
  // Some of PROJ's remarks ignore its log level.
  proj_log_func(context.get(), nullptr, [](void*, int, const char*) {});
  confine(context.get(), context.files());
  if (!hasProjDatabase()) {
    reason = "PROJ's database proj.db was not found or cannot be read.";
    return {};
  }
  return context;
}

ProjOperation makeOperation(pj_ctx* context, const char* definition) {
  return ProjOperation(proj_create(context, definition));
}

ProjPair transform(PJconsts* operation, Direction direction, ProjPair from) {
  const PJ_DIRECTION way = direction == Direction::forward ? PJ_FWD : PJ_INV;
  const PJ_COORD to = proj_trans(operation, way, proj_coord(from.x, from.y, 0.0, HUGE_VAL));
  return {.x = to.v[0], .y = to.v[1]};
}

Error takeError(PJconsts* operation) {
  const int error = proj_errno(operation);
  proj_errno_reset(operation);
  const bool outside = error == PROJ_ERR_COORD_TRANSFM_OUTSIDE_GRID || error == PROJ_ERR_COORD_TRANSFM_GRID_AT_NODATA;
  return outside ? Error::outsideGrid : Error::notComputed;
}

}  // namespace tovak::engine
