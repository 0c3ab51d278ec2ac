/// Asking a fresh engine for one point.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "engine/tovakx.h"

namespace tovak::engine::probe {

inline std::unique_ptr<TovakX> freshEngine() {
  std::string reason;
  std::unique_ptr<TovakX> engine = TovakX::create(reason);
  if (engine == nullptr) throw std::runtime_error(reason);
  return engine;
}

struct Result {
  int code = 0;
  double northing = 0.0;
  double easting = 0.0;
  double elevation = 0.0;
  std::string info;
};

/// What the outputs hold before a conversion.
inline constexpr double kUntouched = -777.0;

inline Result convert(TovakX& engine, const std::string& source, const std::string& target, Point point,
                      std::string_view form = "S") {
  Result result{.northing = kUntouched, .easting = kUntouched, .elevation = point.elevation, .info = "untouched"};
  result.code = engine.TovakVert(point.northing, point.easting, result.elevation, source, result.northing,
                                 result.easting, result.elevation, target, result.info, form);
  return result;
}

/// Whether the engine finds the grid between NAD27 and NAD83.
inline bool hasGrid(TovakX& engine) {
  const Result result = convert(engine, "103", "0", {.northing = 45.0, .easting = -94.0, .elevation = 0.0});
  return result.code != static_cast<int>(Error::noGrid);
}

#define TOVAK_SKIP_WITHOUT_GRID(engine) \
  if (!probe::hasGrid(engine)) GTEST_SKIP() << "the datum grid us_noaa_conus.tif is not where PROJ_DATA points"

}  // namespace tovak::engine::probe
