/// The map projections of the catalogue: between geographic and plane coordinates of one datum.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "engine/catalogue.h"
#include "engine/closed_form.h"
#include "engine/error.h"
#include "engine/geographic.h"
#include "engine/grid_factors.h"
#include "engine/proj_objects.h"

namespace tovak::engine {

/// A system's projection made ready: in closed form where there is one, otherwise by PROJ.
class Projection {
 public:
  /// `operation` is one map projection, not null.
  Projection(pj_ctx* context, ProjOperation operation);

  /// Both give a result that is not finite where the projection is not defined; `takeError` then says why.
  PlanePoint project(const Geographic& point) const;
  Geographic unproject(const PlanePoint& point) const;
  Error takeError() const;

  /// The same with the factors at the point, nothing where the projection has none.
  PlanePoint project(const Geographic& point, std::optional<GridFactors>& factors) const;

  const ClosedForm& closedForm() const { return form_; }

 private:
  ProjOperation operation_;
  ClosedForm form_;
};

/// The projections of the systems in use, each made when it is first asked for.
class Projections {
 public:
  /// That of a system that has one; null when PROJ cannot make it. It lives as long as this object.
  const Projection* find(pj_ctx* context, const CoordinateSystem& system);

 private:
  std::map<std::string, Projection> projections_;  // keyed by definition, since that of a project may change
};

/// By PROJ. Both give a result that is not finite where the projection is not defined.
PlanePoint project(PJconsts* projection, Geographic from);
Geographic unproject(PJconsts* projection, PlanePoint from);

}  // namespace tovak::engine
