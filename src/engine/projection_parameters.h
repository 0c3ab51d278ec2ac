/// The list of parameters of one map projection in PROJ's notation.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/catalogue.h"
#include "text/result.h"

namespace tovak::engine {

/// A bare map projection.
struct Parameters {
  std::string list;  ///< lengths in metres, whatever the unit of the coordinates
  Datum datum = Datum::nad83;
  bool feet = false;  ///< the definition's coordinates are in U.S. survey feet; else metres, or it does not say
};

/// Brings a list such as "+proj=lcc +lat_1=45d37' ... +datum=NAD83 +units=m" to the bare projection on its datum's
/// ellipsoid, which is what the engine computes with.
///
/// PROJ ignores any part of a value that it does not understand, applies the datum shift that a datum's name implies,
/// and ignores unknown parameters. So a list is refused if it holds anything but the parameters of a map projection,
/// each once and with a whole value, "+units=m" or "+units=us-ft" and one datum or ellipsoid: that of `expected`, or
/// either datum's when nothing is expected. If the list names none, `expected` applies.
text::Result<Parameters> readParameters(std::string_view list, std::optional<Datum> expected);

/// Why coordinates in a unit with this name of PROJ's are refused: "the international foot ...".
std::string refusedUnit(std::string_view unit);

/// False easting and northing in metres.
struct FalseOrigin {
  double northing = 0.0;
  double easting = 0.0;
};
FalseOrigin falseOrigin(std::string_view parameters);

}  // namespace tovak::engine
