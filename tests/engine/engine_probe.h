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

/// What the outputs hold before a conversion.
inline constexpr double kUntouched = -777.0;

struct Result {
  int code = 0;
  double northing = kUntouched;
  double easting = kUntouched;
  double elevation = 0.0;
  std::string info = {};
};

inline Result convert(TovakX& engine, const std::string& source, const std::string& target, Point point,
                      std::string_view form = "S") {
  Result r{.elevation = point.elevation};
  r.code = engine.TovakVert(point.northing, point.easting, r.elevation, source, r.northing, r.easting, r.elevation,
                            target, r.info, form);
  return r;
}

/// Whether the engine finds the grid between NAD27 and NAD83.
inline bool hasGrid(TovakX& engine) {
  return convert(engine, "103", "0", {45.0, -94.0, 0.0}).code != static_cast<int>(Error::noGrid);
}

#define TOVAK_SKIP_WITHOUT_GRID(engine) \
  if (!probe::hasGrid(engine)) GTEST_SKIP() << "the datum grid us_noaa_conus.tif is not where PROJ_DATA points"

}  // namespace tovak::engine::probe
