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
  const run::Message missing = {"The TovakX Object could not be loaded.", "Missing Component", run::Icon::None};
  const run::Message outdated = {"The TovakX Component is out of date.\nRun the newest TovakX_Install.exe.",
                                 "TovakX Version Error", run::Icon::None};
  const std::string projData = "/usr/share/proj", nothing = folder.path().string();
  std::filesystem::create_directory(folder.path() / "QrAppsData");
  folder.write("QrAppsData/counties.txt", "# none\n5|Adler\n");
  const EnvironmentVariable appData("APPDATA", folder.path().string());
  // The module, where PROJ's database is looked for, a part of the reason, the message.
  const std::tuple<std::string, std::string, const char*, run::Message> cases[] = {
      {folder.file("missing.so"), projData, "No such file", missing},
      {folder.file("text.so"), projData, "text.so", missing},
      {kBinaries + "/empty_module.so", projData, "createTovakXEngine", missing},
      {kBinaries + "/unwilling_engine.so", projData, "no database", missing},
      {kBinaries + "/outdated_engine.so", projData, "", outdated},
      {"", nothing, "proj.db", missing},
      {"", projData, "QrAppsData/counties.txt: line 2: seven fields", missing}};
  for (const auto& [module, database, reason, message] : cases) {
    const EnvironmentVariable component("TOVAKX_COMPONENT", module), data("PROJ_DATA", database);
    const EngineStart start = startEngine();
    EXPECT_EQ(start.engine, nullptr);
    EXPECT_EQ(start.message, message) << module;
    EXPECT_NE(start.reason.find(reason), std::string::npos) << start.reason;
  }
}

TEST(EngineStart, FindsTheModuleBesideTheExecutable) {
  const EnvironmentVariable component("TOVAKX_COMPONENT", nullptr);
  for (const char* identifier : {"TovakX.Tvkn", "TovakXPassThrough.Tvkn"})
    EXPECT_NE(run::createEngine(identifier).engine, nullptr) << identifier;
}

TEST(PassThroughEngine, ChangesNothing) {
  const EnvironmentVariable component("TOVAKX_COMPONENT", kBinaries + "/TovakXPassThrough.so");
  const EngineStart start = startEngine();
  ASSERT_NE(start.engine, nullptr);
  double north = 45.5, east = -93.25, elevation = 812.3, outNorth = 0, outEast = 0;
  std::string info = "old";
  EXPECT_LE(start.engine->TovakVert(north, east, elevation, "2", outNorth, outEast, elevation, "3M", info), 0);
  EXPECT_TRUE(outNorth == 45.5 && outEast == -93.25 && elevation == 812.3 && info.empty());
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
  for (const std::filesystem::path& unusable : {folder.path() / "file" / "QrAppsData", std::filesystem::path()}) {
    prepareDataFolder(unusable);
    EXPECT_EQ(loadFormats(unusable).value.value().size(), 1U);
  }
  EXPECT_EQ(dailyReportName("/data", {.year = 2026, .month = 3, .day = 19}), "/data/Tovak03-19-2026.rpt");
}

}  // namespace
}  // namespace tovak::app
