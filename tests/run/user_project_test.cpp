#include "run/user_project.h"

#include <gtest/gtest.h>

#include "support/environment.h"
#include "support/temporary_folder.h"

namespace tovak::run {
namespace {

TEST(UserProject, IsReadAsItWasWritten) {
  const tests::TemporaryFolder folder;
  const tests::EnvironmentVariable data("APPDATA", folder.path().string());
  EXPECT_EQ(userProjectFile(), folder.file("QrAppsData/project.txt"));
  const std::string file = folder.file("project.txt");
  EXPECT_TRUE(!readUserProject(file).project && readUserProject(file).error.empty());
  std::string error;
  for (const bool metres : {true, false}) {
    const UserProject project = {"Bridge = 9", "+proj=utm #1", metres};
    ASSERT_TRUE(writeUserProject(file, project, error)) << error;
    const UserProject read = readUserProject(file).project.value();
    EXPECT_TRUE(read.name == project.name && read.definition == project.definition && read.metres == metres);
  }
  EXPECT_TRUE(readUserProject(folder.write("other", "UNIT=Feet\r\n\r\n  # mine\r\nName = A\r\n definition=x")).project);
  EXPECT_FALSE(writeUserProject(folder.file("nowhere/project.txt"), {"A", "x", true}, error));
  EXPECT_EQ(error, folder.file("nowhere/project.txt") + ": No such file or directory");
  EXPECT_FALSE(writeUserProject("", {"A", "x", true}, error));
  EXPECT_EQ(error, "There is no data folder to keep the project in.");
}

TEST(UserProject, ReportsWhatIsWrongWithItsFile) {
  const tests::TemporaryFolder folder;
  using Row = std::pair<std::string, const char*>;
  const Row cases[] = {
      Row("", ": the line \"name = ...\" is missing"),
      Row("name=A\nunit=feet\n", ": the line \"definition = ...\" is missing"),
      Row("name=A\nx", ": line 2: a key, \"=\""),
      Row("nom=A\n", ": line 1: the keys are"),
      Row("name=A\nname=B", ": line 2: the name is given twice"),
      Row("unit=ft", ": line 1: the unit is neither"),
      Row("name=\ndefinition=x\nunit=feet", ": the project has no name"),
      Row("name=A\ndefinition=\nunit=feet", ": the project has no definition"),
      Row("name=A~B\ndefinition=x\nunit=feet", ": the name holds a tilde"),
      Row("name=None Selected\ndefinition=x\nunit=feet", ": \"None Selected\""),
      Row("name=A\ndefinition=\tx\nunit=feet", ": name and definition hold no"),
      Row("name=" + std::string(81, 'A') + "\ndefinition=x\nunit=feet", ": the name is longer"),
      Row("name=A\ndefinition=" + std::string(9000, 'x') + "\nunit=feet", ": the definition is longer"),
      Row(std::string(2 << 20, 'x'), ": line 1 is longer than 1 MiB"),
      Row(std::string("name=A\0\ndefinition=x\nunit=feet", 30), ": name and definition")};
  for (const auto& [contents, reason] : cases) {
    const std::string file = folder.write("project.txt", contents);
    EXPECT_EQ(readUserProject(file).error.rfind(file + reason, 0), 0U) << readUserProject(file).error;
  }
  EXPECT_TRUE(readUserProject(folder.path().string()).error.ends_with(": Is a directory"));
}

}  // namespace
}  // namespace tovak::run
