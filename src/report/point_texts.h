/// The texts by which a converted point is shown: in the output grid and in the report.
#pragma once

#include <string>

#include "run/point_record.h"
#include "run/run_settings.h"

namespace tovak::report {

/// Without blanks at either end; alignment is up to the caller.
struct PointTexts {
  std::string northing;  ///< of the source, or its latitude
  std::string easting;
  std::string targetNorthing;
  std::string targetEasting;
  std::string elevation;  ///< in target units
};

/// Fills `texts`, whose memory is kept from point to point, from a record that the engine has converted. Lengths have
/// the precision of the run. Angles are decimal degrees with nine decimals when that is the run's form, else degrees,
/// minutes and seconds with five, blanks between; west and south are negative. Source coordinates for which the reader
/// has its own texts are shown as it kept them.
void makePointTexts(const run::PointRecord& point, const run::RunSettings& settings, PointTexts& texts);

}  // namespace tovak::report
