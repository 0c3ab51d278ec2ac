#include "engine/definition.h"

#include <gtest/gtest.h>

#include "engine/proj_objects.h"

namespace tovak::engine {
namespace {

constexpr const char* kUtm = "+proj=utm +zone=15 +ellps=GRS80";
/// A system in WKT whose ellipsoid, meridian, unit and axes are the test's.
std::string wkt(const std::string& ellipsoid, const std::string& meridian, const std::string& end) {
  return R"(PROJCS["z",GEOGCS["g",DATUM["d",SPHEROID["s",)" + ellipsoid + R"(]],PRIMEM["m",)" + meridian +
         R"(],UNIT["degree",0.0174532925199433]],PROJECTION["Transverse_Mercator"],)"
         R"(PARAMETER["latitude_of_origin",45],PARAMETER["central_meridian",-93],PARAMETER["scale_factor",1],)"
         R"(PARAMETER["false_easting",500],PARAMETER["false_northing",100],)" +
         end + ']';
}

class Definition : public testing::Test {
 protected:
  std::string reason;
  const ProjContext context = openProj(reason);
};

TEST_F(Definition, BecomesTheBareProjection) {
  const std::string tmerc = "+proj=tmerc +lat_0=45 +lon_0=-93 +k=1 +x_0=500 +y_0=100 +ellps=";
  const std::pair<std::string, std::string> cases[] = {
      {"+proj=utm +zone=15 +ellps=GRS80", kUtm},
      {"proj=utm   zone=15 datum=NAD83 units=m no_defs type=crs", kUtm},
      {"+proj=utm +zone=15 +ellps=GRS80 +towgs84=0,0,0,0,0,0,0 +units=m +no_defs", kUtm},
      {"+proj=lcc +lat_1=45d37'30.5\" +lat_2=47.05N +lat_0=45 +lon_0=94d15'W +k_0=1e0 +ellps=clrk66",
       "+proj=lcc +lat_1=45d37'30.5\" +lat_2=47.05N +lat_0=45 +lon_0=94d15'W +k_0=1e0 +ellps=clrk66"},
      {"EPSG:26915", kUtm},
      {"  epsg:26715 ", "+proj=utm +zone=15 +ellps=clrk66"},
      {wkt("6378137,298.257222101", "0", R"(UNIT["metre",1])"), tmerc + "GRS80"},
      // The older figure is often cut off, and a zone may put the northing first.
      {wkt("6378206.4,294.9786982", "0", R"(UNIT["metre",1],AXIS["N",NORTH],AXIS["E",EAST])"), tmerc + "clrk66"}};
  for (const auto& [definition, parameters] : cases) {
    const ParametersResult read = readDefinition(context.get(), definition, std::nullopt);
    EXPECT_EQ(read.reason, "") << definition;
    EXPECT_EQ(read.parameters, parameters);
    EXPECT_EQ(read.datum, parameters.ends_with("GRS80") ? Datum::nad83 : Datum::nad27);
  }
  EXPECT_EQ(readDefinition(context.get(), "+proj=utm +zone=15", Datum::nad83).parameters, kUtm);
}

TEST_F(Definition, IsRefusedWithAReason) {
  const std::string grs80 = "6378137,298.257222101";
  const std::pair<std::string, const char*> cases[] = {
      {"", "neither PROJ parameters"},
      {"UTM zone 15", "neither PROJ parameters"},
      {"{}", "neither PROJ parameters"},
      {"EPSG:", "neither PROJ parameters"},
      {"EPSG:99999", "does not know it"},
      {"NONE:26915", "does not know it"},
      {"PROJCS[]", "does not know it"},
      {std::string(4000, '[') + ']', "neither"},
      {"X[" + std::string(4000, ']'), "does not"},
      {"EPSG:4269", "no projected coordinate system"},
      {"EPSG:7415", "no projected"},
      {"EPSG:5703", "no projected"},
      {"EPSG:32615", "\"+ellps=WGS84\" is neither the ellipsoid of NAD83"},
      {"EPSG:26715", "is of another datum"},
      {"EPSG:26848", "unit is not the metre"},
      {wkt(grs80, "0", R"(UNIT["Foot_US",0.304800609601219])"), "unit is not"},
      {wkt("6378418.941,298.257222101", "0", R"(UNIT["metre",1])"), "neither the ellipsoid"},
      {wkt(grs80, "2.33722917", R"(UNIT["metre",1])"), "meridian of Greenwich"},
      {wkt(grs80 + "],TOWGS84[1,2,3,0,0,0,0", "0", R"(UNIT["metre",1])"), "datum shift of its own"},
      {wkt(grs80, "0", R"(UNIT["metre",1],AXIS["S",SOUTH],AXIS["W",WEST])"), "more than a map projection"},
      // What PROJ would take without a word: feet, shifts, another meridian, values with a rest, misspelt names.
      {"+proj=utm +zone=15 +units=us-ft", "is not the metre"},
      {"+proj=utm +zone=15 +to_meter=0.3048", "no parameter"},
      {"+proj=utm +zone=15 +nadgrids=conus", "no parameter"},
      {"+proj=utm +zone=15 +datum=NAD27", "another datum"},
      {"+proj=utm +zone=15 +towgs84=1,2,3", "no value"},
      {"+proj=utm +zone=15 +pm=paris", "no parameter"},
      {"+proj=utm +zone=15.5", "no value"},
      {"+proj=utm +zone=15 +zone=14", "second value"},
      {"+zone=15", "+proj="},
      {"+proj=tmerc +lon_0=-93 +x_0=1O0", "no value"},
      {"+proj=tmerc +lon_0=-93,5", "no value"},
      {"+proj=tmerc +lon_0=-93d60'", "no value"},
      {"+proj=tmerc +lon_0=-93d'", "no value"},
      {"+proj=tmerc +lon_0", "no value"},
      {"+proj=tmerc +lon_O=-93", "no parameter"},
      {"+proj=utm +zone=15 +ellps=WGS84", "neither the ellipsoid"},
      {"+proj=pipeline +step +proj=utm +zone=15", "no parameter"},
      {"+proj=utm +zone=15 +a=6378137", "neither the ellipsoid"},
      // What is no map projection of these parts.
      {"+proj=nothing", "cannot make"},
      {"+proj=lcc +lat_1=46 +lat_2=-46 +lon_0=-93", "cannot make"},
      {"+proj=tmerc +lat_0=45 +lon_0=93", "fits the area"},
      {"+proj=lcc +lat_1=45 +lat_2=46 +lon_0=93", "fits the area"},
      {"+proj=longlat", "fits the area"},
      {"+proj=noop", "fits the area"},
      {"+proj=cart", "fits the area"},
      {"+proj=tmerc +lon_0=-93 +k=3.28083333333", "fits the area"}};
  for (const auto& [definition, part] : cases) {
    const ParametersResult read = readDefinition(context.get(), definition, Datum::nad83);
    EXPECT_NE(read.reason.find(part), std::string::npos) << definition << ": " << read.reason;
  }
  EXPECT_NE(readDefinition(context.get(), "+proj=utm +zone=15", std::nullopt).reason.find("clrk66"), std::string::npos);
}

}  // namespace
}  // namespace tovak::engine
