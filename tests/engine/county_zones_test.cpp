// The agency's catalogue of county zones: the program's own is complete, and no fault in a catalogue is overlooked.
#include "engine/county_zones.h"

#include <gtest/gtest.h>

#include "engine_probe.h"

namespace tovak::engine {
namespace {

const std::string kGood = "6|Anoka||Anoka|NAD83|S|+proj=utm +zone=15";

TEST(CountyZones, AreFoundByTheirCounty) {
  const auto engine = probe::freshEngine();
  using Row = std::tuple<const char*, int, const char*>;
  const Row cases[] = {Row("Anoka ", 6, "S Anoka"), Row("anoka", 6, "S Anoka"), Row("Anoka North", 999, ""),
                       Row("Nowhere ", 999, ""), Row("", 999, ""), Row("Lake North", 43, "N Lake - North"),
                       Row("LAKE NORTH SHORE", 46, "N Lake - Lake (North Shore)"), Row("Lake ", 999, ""),
                       Row("Alderholm ", 8, "N Alderholm - North"), Row("alderholm south", 9, "N Alderholm - South"),
                       Row("Birkmoor ", 16, "C Birkmoor - North"),

                       Row("Dunmarsh", 39, "N Dunmarsh - North"), Row("Elmhaven", 49, "N Elmhaven - North"),
                       Row("Fernwald", 80, "N Fernwald - North"), Row("Fernwald Central", 81, "N Fernwald - Central"),

                       Row("Fernwald Shore", 999, ""),
                       // No definition: such a text comes out of a file.
                       Row("263M +proj=utm +zone=15 +ellps=GRS80", 999, ""), Row("263M x0[y] ", 999, "")};
  for (const auto& [text, code, expected] : cases) {
    std::string filled = "old";
    EXPECT_EQ(engine->GetProjectionFromText(text, filled), code) << text;
    EXPECT_EQ(filled, expected);
  }
  EXPECT_EQ(engine->GetProjectionData(149), "County zone Lake - Lake (North Shore), NAD27~149");
}

// The figures are cs2cs's, of the definitions in the catalogue and latitude 47.7654321, longitude -92.1234567.
TEST(CountyZones, AgreeWithTheirDefinitions) {
  const auto engine = probe::freshEngine();
  using Row = std::tuple<const char*, const char*, double, double>;
  const Row cases[] = {Row("0", "6M", 334398.36180, 235781.20122),     Row("0", "46M", 133926.91231, 90771.92944),
                       Row("0", "50M", -44139.94541, 359369.87328),    Row("0", "82M", 161715.78162, 209457.65851),
                       Row("103", "109M", 334876.83895, 238184.18934), Row("103", "112M", 75159.69470, 369239.06861),
                       Row("103", "149M", 134406.61942, 93170.37943)};
  for (const auto& [latLong, zone, northing, easting] : cases) {
    const probe::Result there = probe::convert(*engine, latLong, zone, {47.7654321, -92.1234567, 0.0});
    EXPECT_NEAR(there.northing, northing, 6e-6) << zone;
    EXPECT_NEAR(there.easting, easting, 6e-6) << zone;
    EXPECT_NEAR(probe::convert(*engine, zone, latLong, {northing, easting, 0.0}).northing, 47.7654321, 1e-10) << zone;
  }
}

class CountyFile : public testing::Test {
 protected:
  /// Why the engine does not start with this catalogue in the data folder, without the file's name.
  std::string fault(const std::string& contents) {
    const std::string file = data.write("counties.txt", contents);
    std::string reason;
    const bool started = TovakX::create(reason) != nullptr;
    EXPECT_EQ(started, reason.empty());
    EXPECT_TRUE(started || reason.starts_with(file + ": ")) << reason;
    return started ? "" : reason.substr(file.size() + 2);
  }
  const probe::DataFolder data;
};

TEST_F(CountyFile, ReplacesTheProgramsOwn) {
  EXPECT_EQ(fault("# mine\r\n\r\n108|Adler|||NAD27|C|EPSG:26715\n 5 | Adler | | | NAD83 | C | EPSG:26915\r\n"), "");
  const auto engine = probe::freshEngine();
  std::string filled;
  EXPECT_EQ(engine->GetProjectionFromText("ADLER", filled), 5);
  EXPECT_EQ(filled, "C");
  EXPECT_EQ(engine->GetProjectionData(5), "County zone Adler, NAD83~5");
  EXPECT_EQ(engine->GetProjectionFromText("Anoka", filled), 999);
  EXPECT_EQ(fault(""), "");
  std::filesystem::remove(data.file("counties.txt"));
  std::filesystem::create_directory(data.file("counties.txt"));
  std::string reason;
  EXPECT_EQ(TovakX::create(reason), nullptr);
  EXPECT_TRUE(reason.ends_with("counties.txt: Is a directory")) << reason;
}

TEST_F(CountyFile, ReportsTheFirstFaultWithItsLine) {
  const std::string utm = "+proj=utm +zone=15";
  using Row = std::pair<std::string, const char*>;
  const Row cases[] = {
      Row("x", "line 2: seven fields"),

      Row("7|A||A|NAD83|S| ", "line 2: the definition is missing"),
      Row("7|A||A|NAD82|S|" + utm, "line 2: the datum"),
      Row("seven|A||A|NAD83|S|" + utm, "line 2: the code is not"),

      Row("4|A||A|NAD83|S|" + utm, "line 2: the codes"),
      Row("103|A||A|NAD83|S|" + utm, "line 2: the codes"),

      Row("206|A||A|NAD27|S|" + utm, "line 2: the codes"),
      Row("7|||A|NAD83|S|" + utm, "line 2: the county has no name"),
      Row("7|A||A,B|NAD83|S|" + utm, "line 2: a name"),

      Row("7|A||A|NAD83|E|" + utm, "line 2: the state plane letter"),

      Row("7|A\t||A|NAD83|S|" + utm, "line 2: the line holds a tab"),
      Row("7|A||A|NAD83|S|" + std::string(9000, ' ') + utm, "line 2: the line is longer"),
      Row(kGood, "line 2: the code is already in line 1"),
      Row("7|ANOKA||B|NAD83|S|" + utm, "line 2: the county and zone are already in line 1"),
      Row("109|Anoka||Anoka|NAD27|C|" + utm, "line 2: county, zone and state plane letter differ"),
      Row("110|ANOKA||Anoka|NAD27|S|" + utm, "line 2: the code is not 103 from that of the other datum's line 1"),
      Row("7|A||A|NAD83|S|+proj=utm", "line 2: the definition cannot be used: it is no map projection"),
      Row("109|Anoka||Anoka|NAD27|S|EPSG:26915",
          "line 2: the definition cannot be used: \"+ellps=GRS80\" is of another datum")};
  for (const auto& [line, expected] : cases)
    EXPECT_EQ(fault(kGood + '\n' + line + "\n#\n").rfind(expected, 0), 0U)
        << line << ": " << fault(kGood + '\n' + line);
  EXPECT_EQ(fault(kGood + "\n109|Anoka||Anoka|NAD27|S|" + utm), "");
}

}  // namespace
}  // namespace tovak::engine
