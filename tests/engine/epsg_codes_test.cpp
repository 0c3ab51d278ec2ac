// The registered numbers of systems: PROJ, which has the registry, converts a point into them as the engine does.
#include "formats/exchange/epsg_codes.h"

#include <gtest/gtest.h>
#include <proj.h>

#include "engine_probe.h"
#include "run/labels.h"
#include "run/projection_box.h"
#include "run/projection_code.h"

namespace tovak::engine {
namespace {

/// The registered latitude and longitude of the datum that a run's labels name.
const char* geographic(const run::RunSettings& settings) {
  const std::string_view datum = run::datumLabel(settings, settings.TargetProjectionCode);
  if (datum == "NAD27") return "EPSG:4267";
  if (datum == "NAD83(2007)") return "EPSG:4759";
  return datum == "NAD83(2011)" ? "EPSG:6318" : "EPSG:4269";
}

TEST(EpsgCodes, AreThoseOfTheEnginesSystems) {
  const auto engine = probe::freshEngine();
  PJ_CONTEXT* const context = proj_context_create();
  int registered = 0;
  run::RunSettings settings;
  for (settings.TargetProjectionCode = 0; settings.TargetProjectionCode <= run::kLastProjectionCode;
       ++settings.TargetProjectionCode) {
    const bool nad27 = run::isNad27(settings.TargetProjectionCode);
    for (int choice = 0; choice < 10; ++choice) {
      settings.adjustment = static_cast<run::Adjustment>(choice / 2);
      settings.target.metres = choice % 2 == 0;
      const std::optional<int> code = formats::exchange::epsgCode(settings);
      if (!code) continue;
      ++registered;
      const std::string target = run::projectionText(settings.TargetProjectionCode, settings.target.metres);
      const probe::Result here =
          probe::convert(*engine, nad27 ? "103" : "0", target, {.northing = 46.1, .easting = -93.4});
      PJ* const there =
          proj_create_crs_to_crs(context, geographic(settings), ("EPSG:" + std::to_string(*code)).c_str(), nullptr);
      ASSERT_NE(there, nullptr) << *code;
      const PJ_COORD expected = proj_trans(there, PJ_FWD, proj_coord(46.1, -93.4, 0, 0));
      EXPECT_NEAR(here.easting, expected.xy.x, 0.0002) << *code << " for " << target;
      EXPECT_NEAR(here.northing, expected.xy.y, 0.0002) << *code << " for " << target;
      proj_destroy(there);
    }
  }
  proj_context_destroy(context);
  // On NAD83 without a year, of 1986, 2007 and 2011: three zones of UTM, three of the state plane in either unit.
  EXPECT_EQ(registered, 4 * 9 + 5 * 6);
}

}  // namespace
}  // namespace tovak::engine
