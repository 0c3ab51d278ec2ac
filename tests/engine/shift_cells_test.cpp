// The datum shift by cells compared with PROJ's own.
#include "engine/shift_cells.h"

#include <cmath>
#include <random>

#include <gtest/gtest.h>
#include <proj.h>

#include "engine/catalogue.h"
#include "engine/datum_shift.h"

namespace tovak::engine {
namespace {

TEST(ShiftCells, AgreeWithProjOrLeaveThePointToIt) {
  const ProjContext context(proj_context_create());
  const char* const folder = TOVAK_DATA_FOLDER "/grids";
  proj_context_set_search_paths(context.get(), 1, &folder);
  const ProjOperation shift =
      makeOperation(context.get(), (std::string("+proj=hgridshift +grids=") + kDatumGridFile).c_str());

  constexpr double kOneUnit = 2.3e-16;  // in the last place of a longitude
  ShiftCells cells;
  std::mt19937 random;
  const auto between = [&random](double low, double high) {
    return low + (high - low) * static_cast<double>(random()) * 0x1p-32;
  };
  int kept = 0;
  for (int i = 0; i < 50'000; ++i) {
    // Beyond the area served and the grid, which ends at 50 degrees north.
    const Geographic point = {between(38.0, 54.0) * kRadiansPerDegree, between(-103.0, -83.0) * kRadiansPerDegree};
    for (const Direction direction : {Direction::forward, Direction::inverse}) {
      const std::optional<Geographic> found =
          direction == Direction::forward ? cells.forward(shift.get(), point) : cells.inverse(shift.get(), point);
      if (!found) continue;
      ++kept;
      const Geographic expected = shiftByProj(shift.get(), direction, point);
      ASSERT_NEAR(found->latitude, expected.latitude, kOneUnit) << point.latitude << ' ' << point.longitude;
      ASSERT_NEAR(found->longitude, expected.longitude, kOneUnit) << point.latitude << ' ' << point.longitude;
    }
  }
  EXPECT_NEAR(kept, 100'000 * (10.0 / 16.0) * (16.0 / 20.0), 1000) << "40 to 50 degrees north, 85 to 101 west";
}

}  // namespace
}  // namespace tovak::engine
