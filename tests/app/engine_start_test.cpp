#include <gtest/gtest.h>

#include "app/startup.h"
#include "run/engine_loader.h"
#include "support/environment.h"
#include "support/temporary_folder.h"

namespace tovak::app {
namespace {

using tests::EnvironmentVariable;

const std::string kBinaries = TOVAK_BINARY_FOLDER;

TEST(EngineStart, TellsMissingFromOutdatedComponents) {
  const tests::TemporaryFolder folder;
  folder.write("text.so", "no module");
  const struct {
    std::string module;
    const char* text;
    const char* title;
    const char* reason;  ///< a part of it
  } cases[] = {
      {folder.file("missing.so"), "The TovakX Object could not be loaded.", "Missing Component", "No such file"},
      {folder.file("text.so"), "The TovakX Object could not be loaded.", "Missing Component", "text.so"},
      {kBinaries + "/empty_module.so", "The TovakX Object could not be loaded.", "Missing Component",
       "createTovakXEngine"},
      {kBinaries + "/unwilling_engine.so", "The TovakX Object could not be loaded.", "Missing Component",
       "no database"},
      {kBinaries + "/outdated_engine.so", "The TovakX Component is out of date.\nRun the newest TovakX_Install.exe.",
       "TovakX Version Error", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.module);
    const EnvironmentVariable component("TOVAKX_COMPONENT", c.module);
    const EngineStart start = startEngine();
    EXPECT_EQ(start.engine, nullptr);
    EXPECT_EQ(start.message, (run::Message{c.text, c.title, run::Icon::None}));
    EXPECT_NE(start.reason.find(c.reason), std::string::npos) << start.reason;
  }
}

TEST(EngineStart, NeedsTheDatabaseOfProjections) {
  const tests::TemporaryFolder folder;
  const EnvironmentVariable component("TOVAKX_COMPONENT", nullptr);
  const EnvironmentVariable data("PROJ_DATA", folder.path().string());
  const EngineStart start = startEngine();
  EXPECT_EQ(start.engine, nullptr);
  EXPECT_EQ(start.message.title, "Missing Component");
  EXPECT_NE(start.reason, "");
}

TEST(EngineStart, FindsTheModuleBesideTheExecutable) {
  const EnvironmentVariable component("TOVAKX_COMPONENT", nullptr);
  for (const char* identifier : {"TovakX.Tvkn", "TovakXPassThrough.Tvkn"}) {
    const run::EngineResult result = run::createEngine(identifier);
    ASSERT_NE(result.engine, nullptr) << result.reason;
    EXPECT_EQ(result.engine->GetVersion(), 103);
  }
}

TEST(PassThroughEngine, ChangesNothing) {
  const EnvironmentVariable component("TOVAKX_COMPONENT", kBinaries + "/TovakXPassThrough.so");
  const EngineStart start = startEngine();
  ASSERT_NE(start.engine, nullptr);
  double north = 45.5;
  double east = -93.25;
  double elevation = 812.3;
  double outNorth = 0;
  double outEast = 0;
  std::string info = "old";
  EXPECT_LE(start.engine->TovakVert(north, east, elevation, "2", outNorth, outEast, elevation, "3M", info), 0);
  EXPECT_EQ(outNorth, 45.5);
  EXPECT_EQ(outEast, -93.25);
  EXPECT_EQ(elevation, 812.3);
  EXPECT_EQ(info, "");
  EXPECT_EQ(start.engine->GetProjectionFromText("Anoka ", info), 999);
  EXPECT_NE(start.engine->GetProjectionData(-263).find("None Selected"), std::string::npos);
}

TEST(DataFolder, IsPreparedWithoutTouchingWhatIsThere) {
  const tests::TemporaryFolder folder;
  std::filesystem::create_directories(folder.path() / "Programs" / "Tovak");
  folder.write("Programs/Tovak/Tovak.cdf", "installed");
  const EnvironmentVariable programs("ProgramFiles", folder.file("Programs"));
  const std::filesystem::path data = folder.path() / "deep" / "QrAppsData";

  prepareDataFolder(data);
  EXPECT_EQ(tests::contentsOf((data / "Tovak.cdf").string()), "installed");

  folder.write("deep/QrAppsData/Tovak.cdf", "mine");
  prepareDataFolder(data);
  EXPECT_EQ(tests::contentsOf((data / "Tovak.cdf").string()), "mine");

  // A folder that cannot be made is no reason to stop.
  folder.write("file", "");
  prepareDataFolder(folder.path() / "file" / "QrAppsData");
  EXPECT_EQ(loadFormats(folder.path() / "file" / "QrAppsData").table.size(), 1U);
  EXPECT_EQ(loadFormats({}).error, "");
}

TEST(DailyReportName, CarriesTheDate) {
  EXPECT_EQ(dailyReportName("/data", {.year = 2026, .month = 3, .day = 9}), "/data/Tovak03-09-2026.rpt");
  EXPECT_EQ(dailyReportName("/data", {.year = 2026, .month = 11, .day = 21}), "/data/Tovak11-21-2026.rpt");
}

}  // namespace
}  // namespace tovak::app
