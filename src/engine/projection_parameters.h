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
  std::string list;
  Datum datum = Datum::nad83;
};

/// Brings a list such as "+proj=lcc +lat_1=45d37' ... +datum=NAD83 +units=m" to the bare projection on its datum's
/// ellipsoid, which is what the engine computes with.
///
/// PROJ ignores any part of a value that it does not understand, applies the datum shift that a datum's name implies,
/// and ignores unknown parameters. So a list is refused if it holds anything but the parameters of a map projection,
/// each once and with a whole value, "+units=m" and one datum or ellipsoid: that of `expected`, or either
/// datum's when nothing is expected. If the list names none, `expected` applies.
text::Result<Parameters> readParameters(std::string_view list, std::optional<Datum> expected);

/// False easting and northing in metres.
struct FalseOrigin {
  double northing = 0.0;
  double easting = 0.0;
};
FalseOrigin falseOrigin(std::string_view parameters);

}  // namespace tovak::engine
