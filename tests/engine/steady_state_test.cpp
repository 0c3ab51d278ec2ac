// Counts allocations: once a pair of projections is ready, a point makes none.
#include <string>

#include <gtest/gtest.h>

#include "engine_probe.h"
#include "support/allocation_counter.h"

namespace tovak::engine {
namespace {

TEST(SteadyState, AllocatesNothing) {
  const auto engine = probe::freshEngine();
  const bool hasGrid = probe::hasGrid(*engine);
  const struct {
    const char* source;
    const char* target;
    double latitude;
    bool needsGrid;
  } cases[] = {
      {"Projection = 0 (Latitude and Longitude : NAD83)", "4", 45.0, false},
      {"0", "0M", 45.0, false},
      {"0", "1M", 60.0, false},
      {"5", "1M", 45.0, false},
      {"103", "0", 45.0, true},
      {"103", "0", 50.5, true},
      {"0", "107", 45.0, true},
  };
  for (const auto& c : cases) {
    if (c.needsGrid && !hasGrid) continue;
    SCOPED_TRACE(std::string(c.source) + " to " + c.target + " at " + std::to_string(c.latitude));
    const std::string source = c.source;
    const std::string target = c.target;
    std::string info;
    std::size_t before = 0;
    for (int point = 0; point < 100; ++point) {
      if (point == 1) before = tests::allocationCount();
      double latitude = c.latitude;
      double longitude = -94.0;
      double elevation = 0.0;
      double northing = 0.0;
      double easting = 0.0;
      engine->TovakVert(latitude, longitude, elevation, source, northing, easting, elevation, target, info, "S");
    }
    EXPECT_EQ(tests::allocationCount(), before);
  }
}

}  // namespace
}  // namespace tovak::engine
