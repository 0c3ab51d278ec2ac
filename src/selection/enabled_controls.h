/// Which of the window's controls apply to the selections.
#pragma once

#include "selection/selections.h"

namespace tovak::selection {

struct EnabledControls {
  bool sourceFile = false;
  bool targetFile = false;
  bool sourceProjection = false;
  bool targetProjection = false;
  bool sourceUnits = false;  ///< not with the user-defined project, whose unit is its own
  bool targetUnits = false;
  bool latLongForm = false;
  bool ordinaryOptions = false;  ///< adjustment, point numbering, the report's switch
  bool verticalDatum = false;    ///< not with heights of the geodetic database, whose datum is theirs
  bool nextNumber = false;
  bool report = false;    ///< the report's file and what is done with it
  bool database = false;  ///< the geodetic database's lists stand in the place of file and projection
};

EnabledControls enabledControls(const Selections& selections, const run::FormatTables& formats);

}  // namespace tovak::selection
