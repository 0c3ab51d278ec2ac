#include "formats/survey/geodimeter_writer.h"
#include "formats/survey/geopak_reader.h"
#include "formats/survey/geopak_writer.h"
#include "support/format_files.h"

namespace tovak::formats::survey {
namespace {

using namespace tests;
using run::PointRecord;

const Show fields = [](const PointRecord& p) {
  return row(p.pointNumber, p.InNorthLat, p.InEastLon, p.station, p.Elevation, p.elevationAccuracy, p.sourceLine);
};

/// What is said about a point.
const Show remarks = [](const PointRecord& p) { return p.pointNumber + '/' + p.featureCode + '/' + p.description; };

ReadFile reading(std::string_view bytes, Show show) {
  return readFile(makeGeopakReader, bytes, settingsFor(4), show);
}

run::Message complaint(const std::string& text) {
  return {text, "Invalid Geopak File", run::Icon::Exclamation};
}

const std::string kHeader = " Point Northing Easting Station Elevation\n";
/// Point number in columns 1 to 11; fields from columns 12, 22, 32 and 42.
const std::string kUnderline = "----------- --------- --------- --------- ---------\n";
const std::string kHeading = kHeader + kUnderline;

TEST(GeopakReader, TakesFieldsByTheirColumns) {
  const std::string eastingFirst = " Point X Y Station Elevation\n" + kUnderline;
  const std::string noElevation = kHeader + "----- ---- ---- ----\n";
  const std::string farElevation = kHeader + "----- ---- ---- " + std::string(250, '-') + " --\n";
  const Case cases[] = {
      {kHeading + "\n       17  15000.45  50000.04   10+00.5   812.345", "17|15000.45|50000.04|10+00.5|812.345|0|5"},
      {eastingFirst + "       17  15000.45  50000.04   10+00.5     812.3", "17|50000.04|15000.45|10+00.5|812.3|2|4"},
      // The blank in front of a column belongs to it.
      {kHeading + "A 12345678B15000.4567-50000.0441234567890-12.25 ft",
       "A 12345678B|15000.4567|-50000.044|1234567890|-12.25|1|4"},
      {kHeading + "1           1,234.50 9,000,000            1,012.25", "1|1234.5|9000000||1012.25|1|4"},
      // Lines that end early, and numbers that are none.
      {kHeading + "1           15", "1|15|0||0|0|4"},
      {kHeading + "1           n/a       12x       s         none", "1|0|12|s|0|0|4"},
      // Indented, but the first of all: it cannot belong to a point above it.
      {kHeading + "            15000     50000", "|15000|50000||0|0|4"},
      // Without a column for the elevation, or with one too far to the right, there is none for the station either.
      {noElevation + "17   100  200  300  400", "17|100|200||0|0|4"},
      {farElevation + "17   100  200  300", "17|100|200||0|0|4"}};
  expectEach(cases, [](const std::string& listing) { return reading("$ title\n" + listing, fields).points; });
}

TEST(GeopakReader, RefusesAListingWithoutColumnsOrPoints) {
  const std::string wide = kHeader + std::string(242, '-');
  for (const std::string& bytes :
       {std::string(), kHeading, kHeading + "\n   \n" + kUnderline, " Point X Y\n" + kUnderline + "1   1 2\n",
        kHeader + "1   -1.5   -2.5   -3.5   -4.5\n2   -1.5   -2.5   -3.5   -4.5\n",
        kHeader + "\n" + kUnderline + "1   1 2\n", kHeader + "----------- ---- -----\n1   1 2\n",
        kHeader + " ---- ---- ---- ----\n1   1 2\n", wide + "- ----- ----- -----\n1\n"}) {
    const ReadFile file = reading(bytes, remarks);
    EXPECT_EQ(file.message, complaint("No Geopak Points Found in\n" + file.name)) << bytes;
  }
  EXPECT_EQ(reading(wide + " ----- ----- -----\n1\n", remarks).points, "1//");  // the last column that counts, 255
}

TEST(GeopakReader, GathersWhatIsSaidAboutAPoint) {
  const std::string page = "* page 2\n  Feature: of the page\n9   1  2\n" + kHeader + "-----------------\n";
  const Case cases[] = {
      {"1\n            Feature: CURB  \n            Description:  NE: CORNER \n2", "1/CURB/NE: CORNER 2//"},
      {"1\n-----------Feature:A\n2", "1/A/ 2//"},
      {"1\n            Description: Feature of note", "1/Feature of note/"},
      {"1\n            Feature A\n            Description\n            Type: B", "1//"},
      {"1\n            Feature: A\n            Feature:   ", "1//"},
      {"1\n          Feature: A", "1// F//"},
      {"1\n\n          \n           \n----------\n2", "1// ----------// 2//"},
      {page + "1\n" + page + "            Feature: A\n2", "1/A/ 2//"}};
  expectEach(cases, [](const std::string& lines) { return reading(kHeading + lines, remarks).points; });
  // The lines of a heading without end go into the account.
  const ReadFile endless = reading(kHeading + page + "1\n* page 2\n----------\n2\n3\n", remarks);
  EXPECT_EQ(endless.points + row(endless.counts.comment), "1//4|9");
}

TEST(GeopakReader, StopsAtANumberWithAStrayComma) {
  for (const std::string line : {"2           1,2x     500", "2           500      1,23,4.5",
                                 "2           1         2         3         12,5"}) {
    const ReadFile file =
        reading(kHeading + "1           1,000    500\n\n" + line + "\n3           1        2\n", remarks);
    EXPECT_EQ(file.points, "1// stopped");
    EXPECT_EQ(file.message, complaint("Invalid Number Found in\n" + file.name + ": line 5"));
  }
  const std::string point = "1           1,234.5   500.5     10+00     812.5\n            Feature: CURB\n";
  expectToSurviveDamage(makeGeopakReader, kHeading + point + "* page 2\n-----------\n" + point, {});
}

TEST(GeodimeterAndGeopakWriters, WriteTheBytesOfAPoint) {
  PointRecord bare = pointAt(150123.4457, 500000.044);
  bare.description = "  ";
  PointRecord full = pointAt(150123.4457, 500000.044, -9.3755);
  full.pointNumber = " 1 ";
  full.description = "A \"B\"";
  full.station = " 1+25.5 ";
  full.raField = " 1250.0 ";
  full.featureCode = "CURB";
  const struct {
    MakeWriter make;
    const char* full;  ///< in thousandths
    const char* bare;  ///< in tens
  } cases[] = {{makeGeodimeterControlWriter, "5= 1 \n4=A \"B\"\n37=150123.446\n38=500000.044\n39=-9.376\n",
                "5=\n4=\n37=150120\n38=500000\n39=\n"},
               {makeGeodimeterAlignmentWriter, "80= 1+25.5 \n37=150123.446\n38=500000.044\n64= 1250.0 \n",
                "37=150120\n38=500000\n"},
               {makeGeopakNeWriter, "STO POI  1   N 150123.446  E 500000.044  EL -9.376  FEA CURB  DES \"A \"B\"\"\n",
                "STO POI   N 150120  E 500000  EL 0\n"},
               {makeGeopakXyWriter, "STO POI  1   X 500000.044  Y 150123.446  EL -9.376  FEA CURB  DES \"A \"B\"\"\n",
                "STO POI   X 500000  Y 150120  EL 0\n"}};
  for (const auto& c : cases) {
    EXPECT_EQ(written(c.make, full, settingsFor(4)), c.full);
    EXPECT_EQ(written(c.make, bare, settingsFor(4, false, 4)), c.bare);
  }
}

TEST(Geopak, TurnsAListingIntoACommandFile) {
  Conversion run(run::source::GeopakPrintPoints, run::target::GeopakXy, 4, ScriptedEngine::add);
  EXPECT_TRUE(run.of(sample("geopak_xy.lst"))
                  .starts_with("STO POI 101  X 2980352.432  Y 889338.282  EL 1024.638  FEA CURB  DES \"NE CORNER\"\n"
                               "STO POI 102  X 2980364.910  Y 889402.755  EL 1025.100  DES \"LID, \"OLD\" TOWN\"\n"
                               "STO POI CP-A103  X 2980377.006  Y 889467.031  EL 3.000  FEA MANHOLE\n"));
  run.settings.targetFormat = run::target::GeopakNe;
  EXPECT_TRUE(run.of(sample("geopak_ne.lst")).ends_with("STO POI 104  N 889531.500  E 2980389.250  EL 3.000\n$ END\n"));
}

}  // namespace
}  // namespace tovak::formats::survey
