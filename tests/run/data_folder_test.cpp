#include "run/data_folder.h"

#include <gtest/gtest.h>

#include "support/environment.h"

namespace tovak::run {
namespace {

TEST(DataFolder, FollowsTheEnvironment) {
  const char* const cases[][4] = {{"/app", "/xdg", "/home/a", "/app/QrAppsData"},
                                  {nullptr, "/xdg", "/home/a", "/xdg/QrAppsData"},
                                  {"", "", "/home/a", "/home/a/.local/share/QrAppsData"},
                                  {nullptr, nullptr, nullptr, ""}};
  for (const auto& [appData, dataHome, home, folder] : cases) {
    const tests::EnvironmentVariable app("APPDATA", appData), xdg("XDG_DATA_HOME", dataHome), user("HOME", home);
    EXPECT_EQ(dataFolder(), folder);
  }
}

}  // namespace
}  // namespace tovak::run
