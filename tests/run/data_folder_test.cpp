#include "run/data_folder.h"

#include <gtest/gtest.h>

#include "support/environment.h"

namespace tovak::run {
namespace {

TEST(DataFolder, FollowsTheEnvironment) {
  const struct {
    const char* appData;
    const char* dataHome;
    const char* home;
    const char* folder;
  } cases[] = {
      {"/app", "/xdg", "/home/a", "/app/QrAppsData"},
      {nullptr, "/xdg", "/home/a", "/xdg/QrAppsData"},
      {"", "", "/home/a", "/home/a/.local/share/QrAppsData"},
      {nullptr, nullptr, nullptr, ""},
  };
  for (const auto& c : cases) {
    const tests::EnvironmentVariable appData("APPDATA", c.appData);
    const tests::EnvironmentVariable dataHome("XDG_DATA_HOME", c.dataHome);
    const tests::EnvironmentVariable home("HOME", c.home);
    EXPECT_EQ(dataFolder(), c.folder);
  }
}

}  // namespace
}  // namespace tovak::run
