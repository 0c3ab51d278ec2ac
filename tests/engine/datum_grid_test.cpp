// Where the datum grid is looked for, and what happens off it and without it.
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include <gtest/gtest.h>
#include <proj.h>

#include "engine/datum_shift.h"
#include "engine_probe.h"
#include "support/environment.h"
#include "support/temporary_folder.h"

namespace tovak::engine {
namespace {

namespace fs = std::filesystem;
using probe::convert;
using tests::EnvironmentVariable;

constexpr Point kPoint = {.northing = 45.0, .easting = -94.0, .elevation = 0.0};
constexpr int kNoGrid = static_cast<int>(Error::noGrid);

fs::path databaseFile() {
  PJ_CONTEXT* const context = proj_context_create();
  const char* const path = proj_context_get_database_path(context);
  const fs::path file = path == nullptr ? "" : path;
  proj_context_destroy(context);
  return file;
}

/// The grid in one of the folders that PROJ_DATA names, empty when none has it.
fs::path gridFile() {
  const char* const variable = std::getenv("PROJ_DATA");
  std::istringstream folders(variable == nullptr ? "" : variable);
  for (std::string folder; std::getline(folders, folder, ':');) {
    if (fs::exists(fs::path(folder) / kDatumGridFile)) return fs::path(folder) / kDatumGridFile;
  }
  return {};
}

/// A machine that has PROJ's database and no grid anywhere, until the end of a test.
class BareMachine : public testing::Test {
 protected:
  BareMachine() {
    fs::create_directory(projData);
    fs::create_directories(grids);
    fs::create_symlink(database, projData / "proj.db");
  }
  int codeOfFreshEngine() { return convert(*probe::freshEngine(), "103", "0", kPoint).code; }

  const fs::path grid = gridFile();  // before the environment is changed
  const fs::path database = databaseFile();
  const tests::TemporaryFolder folder;
  const fs::path projData = folder.path() / "proj";
  const fs::path grids = folder.path() / "data, 'of' \"one\" user; é" / "QrAppsData" / "grids";
  const EnvironmentVariable projDataVariable{"PROJ_DATA", projData.string()};
  const EnvironmentVariable olderVariable{"PROJ_LIB", nullptr};
  const EnvironmentVariable writable{"PROJ_USER_WRITABLE_DIRECTORY", folder.path().string()};
  const EnvironmentVariable network{"PROJ_NETWORK", "OFF"};
  const EnvironmentVariable data{"APPDATA", grids.parent_path().parent_path().string()};
};

TEST_F(BareMachine, MissesTheGridOnlyBetweenTheDatums) {
  const auto engine = probe::freshEngine();
  const std::tuple<const char*, const char*, int> cases[] = {{"103", "0", kNoGrid}, {"0", "107M", kNoGrid},
                                                             {"107", "0", kNoGrid}, {"0", "4", 0},
                                                             {"103", "107", 0},     {"0", "0", 0}};
  for (const auto& [source, target, code] : cases) EXPECT_EQ(convert(*engine, source, target, kPoint).code, code);
}

TEST_F(BareMachine, FindsTheGridInItsPlaces) {
  if (grid.empty()) GTEST_SKIP() << "the datum grid us_noaa_conus.tif is in no folder of PROJ_DATA";
  // No grid of another name stands in for it.
  for (const char* name : {"conus", "us_noaa_conus.gtx", "ca_nrc_ntv2_0.tif"}) fs::copy_file(grid, projData / name);
  const auto before = probe::freshEngine();
  EXPECT_EQ(convert(*before, "103", "0", kPoint).code, kNoGrid);

  fs::copy_file(grid, grids / kDatumGridFile);
  EXPECT_EQ(convert(*before, "103", "1M", kPoint).code, kNoGrid) << "searched for again";
  const probe::Result result = convert(*probe::freshEngine(), "103", "0", kPoint);
  EXPECT_EQ(result.code, 0);
  EXPECT_NEAR(result.northing, 44.999963055556, 1e-9);
  EXPECT_NEAR(result.easting, -94.000248611106, 1e-9);

  // A damaged one there is passed over.
  fs::resize_file(grids / kDatumGridFile, fs::file_size(grid) / 2);
  EXPECT_EQ(codeOfFreshEngine(), kNoGrid);
  fs::copy_file(grid, projData / kDatumGridFile);
  EXPECT_EQ(codeOfFreshEngine(), 0);
}

TEST_F(BareMachine, DoesNotStartWithoutADatabase) {
  fs::remove(projData / "proj.db");
  std::string reason;
  EXPECT_EQ(TovakX::create(reason), nullptr);
  EXPECT_EQ(reason, "PROJ's database proj.db was not found or cannot be read.");
  folder.write("proj/proj.db", "not a database");
  EXPECT_EQ(TovakX::create(reason), nullptr);
}

TEST(DatumGrid, RefusesPointsOffItsEdge) {
  const auto engine = probe::freshEngine();
  TOVAK_SKIP_WITHOUT_GRID(*engine);
  // The grid ends at latitude 50 of NAD27, a few metres north of latitude 50 of NAD83.
  const std::tuple<const char*, const char*, double, int> cases[] = {
      {"103", "0", 49.9999, 0}, {"103", "4", 50.0001, 9}, {"0", "103", 49.9999, 0}, {"0", "107M", 49.99999, 9}};
  for (const auto& [source, target, latitude, code] : cases) {
    const probe::Result result = convert(*engine, source, target, {latitude, -94.0, 5.0});
    EXPECT_EQ(result.code, code) << source << " to " << target << " at " << latitude;
    EXPECT_EQ(result.northing == probe::kUntouched, code != 0);
    EXPECT_EQ(convert(*engine, "103", "0", kPoint).code, 0) << "the error stuck";
  }
}

TEST(Transform, LeavesNoErrorBehind) {
  std::string reason;
  const ProjContext context = openProj(reason);
  const ProjOperation projection = makeOperation(context.get(), "+proj=utm +zone=15 +ellps=GRS80");
  EXPECT_FALSE(std::isfinite(transform(projection.get(), Direction::forward, {.x = 0.0, .y = 20.0}).x));
  EXPECT_EQ(takeError(projection.get()), Error::notComputed);
  EXPECT_EQ(proj_errno(projection.get()), 0);
}

}  // namespace
}  // namespace tovak::engine
