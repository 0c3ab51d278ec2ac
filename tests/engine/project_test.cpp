#include "engine/project.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "engine_probe.h"
#include "run/user_project.h"

namespace tovak::engine {
namespace {

const std::string kDefinition = "+proj=tmerc +lat_0=45 +lon_0=-93 +k=1 +x_0=500 +y_0=100 +ellps=";

class UserProject : public testing::Test {
 protected:
  void store(const std::string& name, const std::string& definition, const std::string& unit) {
    data.write("project.txt", "name=" + name + "\ndefinition=" + definition + "\nunit=" + unit + '\n');
  }
  /// The file as the engine names it: the sign ends a name in its answers.
  std::string fileWithoutTilde() {
    std::string name = data.file("project.txt");
    std::ranges::replace(name, '~', '-');
    return name;
  }
  const probe::DataFolder data;
  const std::unique_ptr<TovakX> engine = probe::freshEngine();
};

TEST_F(UserProject, IsWhatItsFileSaysAtTheStartOfARun) {
  const Point point = {47.7654321, -92.1234567, 0.0};
  EXPECT_EQ(engine->GetProjectionData(-263), "None Selected");
  EXPECT_EQ(probe::convert(*engine, "0", "263M", point).code, 10);

  store("Bridge 9", kDefinition + "GRS80", "metres");
  EXPECT_EQ(engine->GetProjectionData(-263), "Bridge 9~263M");
  EXPECT_EQ(engine->GetProjectionData(263), "User-defined project Bridge 9, NAD83~263M");
  const probe::Result metres = probe::convert(*engine, "0", "263M", point);
  EXPECT_NEAR(metres.northing, 307874.22545, 6e-6);  // by cs2cs
  EXPECT_NEAR(metres.easting, 66208.08059, 6e-6);
  EXPECT_NEAR(probe::convert(*engine, "0", "263", point).northing, 307874.22545 * 39.37 / 12, 2e-5);

  EXPECT_EQ(probe::convert(*engine, "263M", "0", {0.0, 0.0, 0.0}).code, 6);
  EXPECT_EQ(probe::convert(*engine, "263M", "0", {0.0, 0.001, 0.0}).code, 0);

  store("Bridge 9", kDefinition + "clrk66", "feet");
  EXPECT_EQ(engine->GetProjectionData(-263), "Bridge 9~263");
  EXPECT_NEAR(probe::convert(*engine, "103", "263M", point).northing, 307872.60844, 6e-6);

  // Definitions in feet; figures by cs2cs too.
  store("Bridge 9", "EPSG:26851", "feet");
  EXPECT_EQ(engine->GetProjectionData(-263), "Bridge 9~263");
  const probe::Result feet = probe::convert(*engine, "0", "263", point);
  EXPECT_NEAR(feet.northing, 2071583.557562, 2e-5);
  EXPECT_NEAR(feet.easting, 3086871.322063, 2e-5);
  store("Bridge 9", kDefinition + "GRS80 +units=us-ft", "feet");
  engine->GetProjectionData(-263);
  EXPECT_NEAR(probe::convert(*engine, "0", "263", point).easting, 217217.677722, 2e-5);
  store("Bridge 9", "EPSG:26851", "metres");
  EXPECT_EQ(engine->GetProjectionData(-263), fileWithoutTilde() + ": the definition is in U.S. survey feet");

  store("Bridge 9", kDefinition + "clrk66", "feet\ndatum=NAD83");
  EXPECT_EQ(engine->GetProjectionData(-263), fileWithoutTilde() + ": the definition is on NAD27");

  store("Bridge 9", "EPSG:4269", "feet");
  EXPECT_EQ(engine->GetProjectionData(-263),
            fileWithoutTilde() + ": the definition cannot be used: it is not a projected coordinate system");
  EXPECT_EQ(probe::convert(*engine, "103", "263M", point).code, 10);
}

TEST_F(UserProject, GivesWayToThatOfAJob) {
  store("Bridge 9", kDefinition + "clrk66", "feet");
  const auto give = [&](const std::optional<run::UserProject>& project) {
    std::string told;
    const std::int16_t answer = engine->GetProjectionFromText(run::projectRequest(project), told);
    return std::to_string(answer) + ' ' + engine->GetProjectionData(-263);
  };
  run::UserProject project = {.name = "Bypass", .definition = kDefinition + "GRS80", .datum = "NAD83"};
  EXPECT_EQ(give(project), "263 Bypass~263M");
  EXPECT_NEAR(probe::convert(*engine, "0", "263M", {47.7654321, -92.1234567, 0.0}).northing, 307874.22545, 6e-6);
  project.datum = "NAD27";
  EXPECT_EQ(give(project), "263 The job's project: the definition is on NAD83");
  project.definition = "+proj=utm";
  EXPECT_EQ(give(project).find("999 The job's project: the definition cannot be used: "), 0U);
  EXPECT_EQ(give(std::nullopt).substr(4), "Bridge 9~263");
}

TEST_F(UserProject, IsCheckedBeforeItIsStored) {
  const std::tuple<std::string, int, const char*> cases[] = {
      {"263M\n" + kDefinition + "GRS80", 263,
       "Datum NAD83\n"
       "False origin, northing 100.000, easting 500.000 m: latitude 45 00 00.00000, longitude -93 00 00.00000, inside "
       "the area "
       "served\n"
       "Zero point, northing 0.000, easting 0.000 m: latitude 44 59 56.75997, longitude -93 00 22.82871, inside the "
       "area served"},
      {"263\nEPSG:26715", 263,
       "Datum NAD27\n"
       "False origin, northing 0.000, easting 1640416.667 ft: latitude 00 00 00.00000, longitude -93 00 00.00000, "
       "outside the area "
       "served\n"
       "Zero point, northing 0.000, easting 0.000 ft: latitude 00 00 00.00000, longitude -97 29 19.30127, outside the "
       "area "
       "served"},
      {"263M\n" + kDefinition + "GRS80 +units=us-ft", 263,
       "Datum NAD83\nUnit U.S. survey feet\n"
       "False origin, northing 328.083, easting 1640.417 ft: latitude 45 00 00.00000, longitude -93 00 00.00000, "
       "inside the area served\n"
       "Zero point, northing 0.000, easting 0.000 ft: latitude 44 59 56.75997, longitude -93 00 22.82871, inside the "
       "area served"},
      {"263\nA[" + std::string(8192, 'q') + "]", 999, "The definition is longer than 8192 characters."},
      {"263M\n+proj=utm", 999,
       "The definition cannot be used: neither \"+ellps=GRS80\" (NAD83) nor \"+ellps=clrk66\" (NAD27) is given."}};
  for (const auto& [text, code, expected] : cases) {
    std::string filled;
    EXPECT_EQ(engine->GetProjectionFromText(text, filled), code);
    EXPECT_EQ(filled, expected);
    EXPECT_EQ(run::toldFeet(filled), text.ends_with("us-ft"));
    EXPECT_EQ(run::toldDatum(filled), code == 999 ? "" : filled.substr(6, 5));
  }
  EXPECT_EQ(engine->GetProjectionData(-263), "None Selected");
}

}  // namespace
}  // namespace tovak::engine
