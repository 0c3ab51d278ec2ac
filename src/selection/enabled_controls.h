/// Which of the window's controls apply to the selections.
#pragma once

#include "selection/selections.h"

namespace tovak::selection {

struct EnabledControls {
  bool sourceFile = false;
  bool targetFile = false;
  bool sourceProjection = false;
  bool targetProjection = false;
  bool sourceUnits = false;  ///< not with the user-defined project, which has its own unit
  bool targetUnits = false;
  bool latLongForm = false;
  bool ordinaryOptions = false;  ///< adjustment, point numbering, the report's switch
  bool verticalDatum = false;    ///< not with the geodetic database, whose heights have their own datum
  bool nextNumber = false;
  bool report = false;        ///< the report's file and what to do with it
  bool sourceLayout = false;  ///< the layout of a delimited file is the person's choice
  bool targetLayout = false;
  bool swap = false;      ///< source and target can change places
  bool database = false;  ///< the geodetic database's lists take the place of file and projection
};

EnabledControls enabledControls(const Selections& selections, const run::FormatTables& formats);

}  // namespace tovak::selection
