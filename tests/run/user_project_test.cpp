#include "run/user_project.h"

#include <gtest/gtest.h>

#include "support/environment.h"
#include "support/golden_rows.h"
#include "support/temporary_folder.h"

namespace tovak::run {
namespace {

TEST(UserProject, IsReadAsItWasWritten) {
  const tests::TemporaryFolder folder;
  const tests::EnvironmentVariable data("APPDATA", folder.path().string());
  EXPECT_EQ(userProjectFile(), folder.file("QrAppsData/project.txt"));
  const std::string file = folder.file("project.txt");
  EXPECT_TRUE(readUserProject(file) && !*readUserProject(file));
  std::string error;
  for (const bool metres : {true, false}) {
    const UserProject project = {"Bridge = 9" + std::string(70, '.'), "+proj=utm #1", metres};
    ASSERT_TRUE(writeUserProject(file, project, error)) << error;
    const UserProject read = readUserProject(file).value.value().value();
    EXPECT_TRUE(read.name == project.name && read.definition == project.definition && read.metres == metres);
  }
  EXPECT_TRUE(readUserProject(folder.write("other", "UNIT=Feet\r\n\r\n  # mine\r\nName = A\r\n definition=x")));
  EXPECT_FALSE(writeUserProject(folder.file("nowhere/project.txt"), {"A", "x", true}, error));
  EXPECT_EQ(error, folder.file("nowhere/project.txt") + ": No such file or directory");
  EXPECT_FALSE(writeUserProject("", {"A", "x", true}, error));
  EXPECT_EQ(error, "There is no data folder to keep the project in.");
}

TEST(UserProject, ReportsWhatIsWrongWithItsFile) {
  const tests::TemporaryFolder folder;
  std::vector<std::vector<std::string>> cases = tests::goldenRows("faulty_projects.txt");
  cases.insert(cases.end(),
               {{"name=" + std::string(81, 'A') + "\ndefinition=x\nunit=feet", ": the name is longer"},
                {"name=A\ndefinition=" + std::string(9000, 'x') + "\nunit=feet", ": the definition is longer"},
                {std::string(2 << 20, 'x'), ": line 1 is longer than 1 MiB"},
                {std::string("name=A\0\ndefinition=x\nunit=feet", 30), ": name and definition"}});
  for (const auto& c : cases) {
    const std::string file = folder.write("project.txt", c[0]);
    EXPECT_TRUE(readUserProject(file).error.starts_with(file + c[1])) << readUserProject(file).error;
  }
  EXPECT_TRUE(readUserProject(folder.path().string()).error.ends_with(": Is a directory"));
}

}  // namespace
}  // namespace tovak::run
