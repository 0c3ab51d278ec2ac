// The datum grid: which files are accepted as the grid, and what happens to points that it does not cover.
#include "engine/datum_grid.h"

#include <cmath>
#include <cstdio>
#include <filesystem>

#include <gtest/gtest.h>

#include "engine_probe.h"

namespace tovak::engine {
namespace {

using probe::convert;

constexpr Point kPoint = {.northing = 45.0, .easting = -94.0, .elevation = 0.0};
const std::string kGrid = std::string("grids/") + kDatumGridFile;

class DatumGrid : public testing::Test {
 protected:
  /// A list that knows `grid`.
  void list(const std::string& grid) {
    char line[80];
    std::snprintf(line, sizeof line, "%s|%zu|%08x\n", kDatumGridFile, grid.size(), crc32(grid));
    data.write("grids.txt", line);
  }

  const probe::DataFolder data;
  const std::string good = tests::contentsOf(TOVAK_DATA_FOLDER "/" + kGrid);
};

TEST_F(DatumGrid, IsTakenWithTheChecksumOfTheListOnly) {
  EXPECT_EQ(crc32("123456789"), 0xCBF43926U);  // the check value that catalogues of checksums give
  // The file in the data folder counts, whatever else there is.
  const auto flipped = [this](std::size_t byte) {
    std::string bytes = good;
    bytes[byte] = static_cast<char>(bytes[byte] ^ 4);
    return bytes;
  };
  const std::pair<std::string, const char*> cases[] = {{good, ""},
                                                       {flipped(5), "damaged: its CRC-32"},
                                                       {flipped(100'000), "damaged: its CRC-32"},
                                                       {good.substr(0, 1000), "damaged: its size"},
                                                       {good + '\0', "damaged: its size"},
                                                       {"", "damaged: its size"}};
  for (const auto& [grid, fault] : cases) {
    data.write(kGrid, grid);
    const auto engine = probe::freshEngine();
    const probe::Result result = convert(*engine, "103", "0", kPoint);
    const std::string told = engine->ErrorText(4);
    EXPECT_EQ(result.code, *fault == '\0' ? 0 : 4);
    EXPECT_EQ(convert(*engine, "0", "4", kPoint).code, 0);
    EXPECT_NE(told.find(fault), std::string::npos) << told;
    EXPECT_TRUE(told.size() < 100 && told.find(',') == std::string::npos) << told;
    EXPECT_EQ(told.starts_with("The datum grid us_noaa_conus.tif in the data folder"), result.code != 0) << told;
    EXPECT_NEAR(result.northing, result.code == 0 ? 44.999963055556 : probe::kUntouched, 1e-9);
  }
  data.write(kGrid, good);
  data.write("grids.txt", "# other grids\nus_noaa_alaska.tif|173029|f941a688\n");
  const auto engine = probe::freshEngine();
  EXPECT_EQ(convert(*engine, "103", "0", kPoint).code, 4);
  EXPECT_EQ(engine->ErrorText(4), "The datum grid us_noaa_conus.tif in the data folder is not in grids.txt.");
  data.write("grids.txt", "us_noaa_conus.tif|173029|00000000\n us_noaa_conus.tif | 173029 | F941A688 \n");
  EXPECT_EQ(convert(*probe::freshEngine(), "103", "0", kPoint).code, 0);
  std::filesystem::remove(data.path() / kGrid);
  std::filesystem::create_directory(data.path() / kGrid);
  const auto last = probe::freshEngine();
  EXPECT_EQ(convert(*last, "103", "0", kPoint).code, 4);
  EXPECT_EQ(last->ErrorText(4), "The datum grid us_noaa_conus.tif in the data folder cannot be read.");
  // Nothing is taken from the current folder.
  const tests::EnvironmentVariable relative("APPDATA", std::filesystem::relative(data.path().parent_path()).string());
  EXPECT_EQ(convert(*probe::freshEngine(), "103", "0", kPoint).code, 0);
}

TEST_F(DatumGrid, HasAListWithoutFaults) {
  const std::pair<const char*, const char*> cases[] = {
      {"a.tif|12", "line 2: three fields"},        {"a.tif|12|f941a688|", "line 2: three fields"},
      {"|12|f941a688", "line 2: the grid has no"}, {"a.tif|1.5|f941a688", "line 2: the size"},
      {"a.tif|-1|f941a688", "line 2: the size"},   {"a.tif|1e30|f941a688", "line 2: the size"},
      {"a.tif|12|f941a68", "line 2: the check"},   {"a.tif|12|0xf941a6", "line 2: the check"},
      {"a.tif|12|-f941a68", "line 2: the check"},  {"a.tif\t|12|f941a688", "line 2: the line holds a tab"}};
  for (const auto& [line, fault] : cases) {
    data.write("grids.txt", std::string("# mine\n") + line + '\n');
    std::string reason;
    EXPECT_EQ(TovakX::create(reason), nullptr);
    EXPECT_TRUE(reason.starts_with(data.file("grids.txt") + ": " + fault)) << line << ": " << reason;
  }
}

TEST_F(DatumGrid, IsTheOnlyFileThatProjFinds) {
  const tests::EnvironmentVariable downloads("PROJ_USER_WRITABLE_DIRECTORY", data.path().string());
  const tests::TemporaryFolder folder;
  data.write("downloaded.tif", good);
  std::string reason;
  const ProjContext context = openProj(reason);
  const auto shifts = [&](const std::string& name) {
    const ProjOperation shift = makeOperation(context.get(), ("+proj=hgridshift +grids=" + name).c_str());
    return shift != nullptr && std::isfinite(transform(shift.get(), Direction::forward, {.x = -1.6, .y = 0.8}).x);
  };
  const std::string absolute = folder.write("named.tif", good);
  const std::string relative = std::filesystem::relative(absolute).string();
  for (const std::string& name : {absolute, relative, std::string("downloaded.tif"), std::string(kDatumGridFile)})
    EXPECT_FALSE(shifts(name)) << name;
  context.files().grid = good;
  EXPECT_TRUE(shifts(kDatumGridFile));
}

TEST_F(DatumGrid, RefusesPointsOffItsEdge) {
  const auto engine = probe::freshEngine();
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

/// A grid of 3 by 3 nodes from latitude 39 and longitude -102, 8 degrees apart, that shifts every point north, in the
/// older notation of PROJ (CTABLE V2).
std::string evenGrid(double degreesNorth) {
  std::string bytes = "CTABLE V2";
  const auto append = [&bytes](auto value) { bytes.append(reinterpret_cast<const char*>(&value), sizeof value); };
  bytes.resize(96);
  for (const double degrees : {-102.0, 39.0, 8.0, 8.0}) append(degrees * kRadiansPerDegree);
  for (const std::int32_t nodes : {3, 3}) append(nodes);
  bytes.resize(160);
  for (int node = 0; node < 9; ++node) {
    append(0.0F);
    append(static_cast<float>(degreesNorth * kRadiansPerDegree));
  }
  return bytes;
}

TEST_F(DatumGrid, MayNotShiftTooFarOrOutOfTheAreaServed) {
  const std::tuple<double, double, int> cases[] = {{0.009, 45.0, 0},  {0.011, 45.0, 11},  {-0.011, 45.0, 11},
                                                   {0.009, 50.99, 0}, {0.009, 50.992, 7}, {-0.009, 41.0, 7}};
  for (const auto& [shift, latitude, code] : cases) {
    const std::string grid = evenGrid(shift);
    data.write(kGrid, grid);
    list(grid);
    const probe::Result result = convert(*probe::freshEngine(), "103", "0", {latitude, -94.0, 0.0});
    EXPECT_EQ(result.code, code) << shift << " at " << latitude;
    EXPECT_NEAR(result.northing, code == 0 ? latitude + shift : probe::kUntouched, 1e-6);
  }
}

}  // namespace
}  // namespace tovak::engine
