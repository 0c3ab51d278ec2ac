// Where the datum grid is looked for, and what happens off it and without it.
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

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
  std::string_view folders = variable == nullptr ? "" : variable;
  while (!folders.empty()) {
    const std::size_t end = std::min(folders.find(':'), folders.size());
    const fs::path file = fs::path(folders.substr(0, end)) / kDatumGridFile;
    if (fs::exists(file)) return file;
    folders.remove_prefix(std::min(end + 1, folders.size()));
  }
  return {};
}

#define TOVAK_SKIP_WITHOUT_GRID_FILE(file) \
  if ((file).empty()) GTEST_SKIP() << "the datum grid us_noaa_conus.tif is in no folder of PROJ_DATA"

/// A machine that has PROJ's database and no grid anywhere, until the end of the scope.
struct BareMachine {
  BareMachine() {
    fs::create_directory(projData);
    fs::create_directories(grids);
    fs::create_symlink(database, projData / "proj.db");
  }

  fs::path database = databaseFile();  // before the environment is changed
  tests::TemporaryFolder folder;
  fs::path projData = folder.path() / "proj";
  fs::path grids = folder.path() / "data, 'of' \"one\" user; é" / "QrAppsData" / "grids";
  EnvironmentVariable projDataVariable{"PROJ_DATA", projData.string()};
  EnvironmentVariable olderVariable{"PROJ_LIB", nullptr};
  EnvironmentVariable writable{"PROJ_USER_WRITABLE_DIRECTORY", folder.path().string()};
  EnvironmentVariable network{"PROJ_NETWORK", "OFF"};
  EnvironmentVariable data{"APPDATA", grids.parent_path().parent_path().string()};
};

TEST(DatumGrid, IsMissedOnlyBetweenTheDatums) {
  const BareMachine machine;
  const auto engine = probe::freshEngine();
  const struct {
    const char* source;
    const char* target;
    Point point;
    int code;
  } cases[] = {
      {"103", "0", kPoint, kNoGrid}, {"0", "107M", kPoint, kNoGrid}, {"0", "4", kPoint, 0},
      {"107", "0", kPoint, kNoGrid}, {"103", "107", kPoint, 0},      {"0", "0", kPoint, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.source) + " to " + c.target);
    EXPECT_EQ(convert(*engine, c.source, c.target, c.point).code, c.code);
  }
}

TEST(DatumGrid, IsFoundInTheDataFolderWhateverItsName) {
  const fs::path grid = gridFile();
  TOVAK_SKIP_WITHOUT_GRID_FILE(grid);
  const BareMachine machine;
  const auto before = probe::freshEngine();
  ASSERT_EQ(convert(*before, "103", "0", kPoint).code, kNoGrid);

  fs::copy_file(grid, machine.grids / kDatumGridFile);
  for (const char* target : {"0", "1M"})
    EXPECT_EQ(convert(*before, "103", target, kPoint).code, kNoGrid) << "searched for again";
  const probe::Result result = convert(*probe::freshEngine(), "103", "0", kPoint);
  EXPECT_EQ(result.code, 0);
  EXPECT_NEAR(result.northing, 44.999963055556, 1e-9);
  EXPECT_NEAR(result.easting, -94.000248611106, 1e-9);
}

TEST(DatumGrid, IsLookedForElsewhereWhenTheDataFoldersIsDamaged) {
  const fs::path grid = gridFile();
  TOVAK_SKIP_WITHOUT_GRID_FILE(grid);
  const BareMachine machine;
  fs::copy_file(grid, machine.grids / kDatumGridFile);
  fs::resize_file(machine.grids / kDatumGridFile, fs::file_size(grid) / 2);
  EXPECT_EQ(convert(*probe::freshEngine(), "103", "0", kPoint).code, kNoGrid);

  fs::copy_file(grid, machine.projData / kDatumGridFile);
  EXPECT_EQ(convert(*probe::freshEngine(), "103", "0", kPoint).code, 0);
}

TEST(DatumGrid, HasNoSubstituteOfAnotherName) {
  const fs::path grid = gridFile();
  TOVAK_SKIP_WITHOUT_GRID_FILE(grid);
  const BareMachine machine;
  for (const char* name : {"conus", "us_noaa_conus.gtx", "ca_nrc_ntv2_0.tif"})
    fs::copy_file(grid, machine.projData / name);
  EXPECT_EQ(convert(*probe::freshEngine(), "103", "0", kPoint).code, kNoGrid);
}

TEST(DatumGrid, RefusesPointsOffItsEdge) {
  const auto engine = probe::freshEngine();
  TOVAK_SKIP_WITHOUT_GRID(*engine);
  // The grid ends at latitude 50 of NAD27, a few metres north of latitude 50 of NAD83.
  const struct {
    const char* source;
    const char* target;
    double latitude;
    Error error;
  } cases[] = {
      {"103", "0", 49.9999, Error::none},         {"103", "0", 50.0001, Error::outsideGrid},
      {"103", "4", 50.5, Error::outsideGrid},     {"0", "103", 49.9999, Error::none},
      {"0", "103", 49.99999, Error::outsideGrid}, {"0", "107M", 50.5, Error::outsideGrid},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.source) + " to " + c.target + " at " + std::to_string(c.latitude));
    const probe::Result result = convert(*engine, c.source, c.target, {c.latitude, -94.0, 5.0});
    EXPECT_EQ(result.code, static_cast<int>(c.error));
    EXPECT_EQ(result.northing == probe::kUntouched, c.error != Error::none);
    EXPECT_EQ(convert(*engine, "103", "0", kPoint).code, 0) << "the error stuck";
  }
}

TEST(Transform, LeavesNoErrorBehind) {
  std::string reason;
  const ProjContext context = openProj(reason);
  const ProjOperation shift = makeOperation(context.get(), "+proj=hgridshift +grids=us_noaa_conus.tif");
  const ProjOperation projection = makeOperation(context.get(), "+proj=utm +zone=15 +ellps=GRS80");
  ASSERT_NE(projection, nullptr);
  const struct {
    PJconsts* operation;
    ProjPair point;
    Error error;
  } cases[] = {
      {projection.get(), {.x = 0.0, .y = 20.0}, Error::notComputed},
      {shift.get(), {.x = 0.0, .y = 0.8}, Error::outsideGrid},
  };
  for (const auto& c : cases) {
    if (c.operation == nullptr) GTEST_SKIP() << "the datum grid us_noaa_conus.tif is not where PROJ_DATA points";
    EXPECT_FALSE(std::isfinite(transform(c.operation, Direction::forward, c.point).x));
    EXPECT_EQ(takeError(c.operation), c.error);
    EXPECT_EQ(proj_errno(c.operation), 0);
  }
}

TEST(EngineWithoutDatabase, DoesNotStart) {
  const BareMachine machine;
  fs::remove(machine.projData / "proj.db");
  std::string reason;
  EXPECT_EQ(TovakX::create(reason), nullptr);
  EXPECT_NE(reason.find("proj.db"), std::string::npos) << reason;
  EXPECT_EQ(reason.find('\n'), std::string::npos);

  machine.folder.write("proj/proj.db", "not a database");
  EXPECT_EQ(TovakX::create(reason), nullptr);
}

}  // namespace
}  // namespace tovak::engine
