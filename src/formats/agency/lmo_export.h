/// "LMO Batch": to every point line of the agency's LMO application are added its latitude and longitude and its
/// county, state plane and UTM coordinates.
///
/// A source line holds, with commas between them and without quotes: X or longitude, Y or latitude, county, and the
/// code of the system (`lmo_system_code.h`). Latitudes and longitudes are packed degrees, minutes and seconds. A first
/// line that does not begin with a number other than 0 is a heading, to which the new columns' names are added; later
/// ones are left out. All plane coordinates of the target are in U.S. survey feet on NAD83, X before Y; longitudes are
/// positive west. A text takes the place of what cannot be computed.
#pragma once

#include "run/formats.h"

namespace tovak::formats::agency {

bool exportLmoBatch(const run::ExportContext& context);

}  // namespace tovak::formats::agency
