// Counts allocations: once a pair of projections is ready, a point makes none.
#include <gtest/gtest.h>

#include "engine_probe.h"
#include "support/allocation_counter.h"

namespace tovak::engine {
namespace {

TEST(SteadyState, AllocatesNothing) {
  const auto engine = probe::freshEngine();
  const bool hasGrid = probe::hasGrid(*engine);
  const struct {
    std::string source;
    std::string target;
    double latitude;
    bool needsGrid = false;
  } cases[] = {{"Projection = 0 (Latitude and Longitude : NAD83)", "4", 45.0},
               {"0", "1M", 60.0},
               {"5", "1M", 45.0},
               {"103", "0", 50.5, true},
               {"0", "107", 45.0, true}};
  for (const auto& c : cases) {
    if (c.needsGrid && !hasGrid) continue;
    std::string info;
    std::size_t before = 0;
    for (int point = 0; point < 100; ++point) {
      if (point == 1) before = tests::allocationCount();
      double latitude = c.latitude, longitude = -94.0, elevation = 0.0, northing = 0.0, easting = 0.0;
      engine->TovakVert(latitude, longitude, elevation, c.source, northing, easting, elevation, c.target, info, "S");
    }
    EXPECT_EQ(tests::allocationCount(), before) << c.source << " to " << c.target << " at " << c.latitude;
  }
}

}  // namespace
}  // namespace tovak::engine
