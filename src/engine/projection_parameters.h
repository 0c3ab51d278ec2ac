/// The list of parameters of one map projection in PROJ's notation.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/catalogue.h"

namespace tovak::engine {

/// Either the parameters or the reason why they cannot be used.
struct ParametersResult {
  std::string parameters;
  Datum datum = Datum::nad83;
  std::string reason;
};

/// Brings a list such as "+proj=lcc +lat_1=45d37' ... +datum=NAD83 +units=m" to the bare projection on its datum's
/// ellipsoid, which is what the engine computes with.
///
/// PROJ takes what it does not understand in a value for nothing, applies a datum shift that a datum's name implies,
/// and ignores a parameter it does not know. So a list is refused that holds anything but the parameters of a map
/// projection, each once and with a whole value, "+units=m" and one datum or ellipsoid: that of `expected`, or either
/// datum's when nothing is expected. Without one `expected` decides.
ParametersResult readParameters(std::string_view list, std::optional<Datum> expected);

/// False easting and northing in metres.
struct FalseOrigin {
  double northing = 0.0;
  double easting = 0.0;
};
FalseOrigin falseOrigin(std::string_view parameters);

}  // namespace tovak::engine
