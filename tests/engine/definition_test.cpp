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
  using Row = std::pair<std::string, std::string>;
  const Row cases[] = {
      Row("+proj=utm +zone=15 +ellps=GRS80", kUtm),
      Row("proj=utm   zone=15 datum=NAD83 units=m no_defs type=crs", kUtm),
      Row("+proj=utm +zone=15 +ellps=GRS80 +towgs84=0,0,0,0,0,0,0 +units=m +no_defs", kUtm),
      Row("+proj=lcc +lat_1=45d37'30.5\" +lat_2=47.05N +lat_0=45 +lon_0=94d15'W +k_0=1e0 +ellps=clrk66",
          "+proj=lcc +lat_1=45d37'30.5\" +lat_2=47.05N +lat_0=45 +lon_0=94d15'W +k_0=1e0 +ellps=clrk66"),
      Row("EPSG:26915", kUtm), Row("  epsg:26715 ", "+proj=utm +zone=15 +ellps=clrk66"),
      Row(wkt("6378137,298.257222101", "0", R"(UNIT["metre",1])"), tmerc + "GRS80"),
      // The older figure is often cut off, and a zone may put the northing first.
      Row(wkt("6378206.4,294.9786982", "0", R"(UNIT["metre",1],AXIS["N",NORTH],AXIS["E",EAST])"), tmerc + "clrk66"),
      // Coordinates in U.S. survey feet; the origin in metres is by projinfo.
      Row(kUtm + std::string(" +units=us-ft"), kUtm),
      Row(wkt("6378137,298.257222101", "0", R"(UNIT["Foot_US",0.304800609601219])"),
          "+proj=tmerc +lat_0=45 +lon_0=-93 +k=1 +x_0=152.40030480061 +y_0=30.4800609601219 +ellps=GRS80")};
  for (const auto& [definition, parameters] : cases) {
    const text::Result<Parameters> read = readDefinition(context.get(), definition, std::nullopt);
    ASSERT_TRUE(read) << definition << ": " << read.error;
    EXPECT_EQ(read->list, parameters);
    EXPECT_EQ(read->feet, definition.ends_with("us-ft") || definition.find("Foot_US") != std::string::npos);
    EXPECT_EQ(read->datum, parameters.ends_with("GRS80") ? Datum::nad83 : Datum::nad27);
  }
  EXPECT_EQ(readDefinition(context.get(), "+proj=utm +zone=15", Datum::nad83)->list, kUtm);
}

TEST_F(Definition, IsRefusedWithAReason) {
  const std::string grs80 = "6378137,298.257222101";
  using Row = std::pair<std::string, const char*>;
  const Row cases[] = {
      Row("", "neither PROJ parameters"), Row("{}", "neither PROJ parameters"), Row("EPSG:99999", "does not know it"),
      Row("PROJCS[]", "does not know it"), Row(std::string(4000, '[') + ']', "neither"),
      Row("X[" + std::string(4000, ']'), "no keyword"), Row("EPSG:4269", "not a projected coordinate system"),
      Row("EPSG:32615", "\"+ellps=WGS84\" is neither the ellipsoid of NAD83"), Row("EPSG:26715", "is of another datum"),
      Row("EPSG:2222", "unit is the international foot"),
      Row(wkt(grs80, "0", R"(UNIT["foot",0.3048])"), "unit is the international foot"),
      Row(wkt(grs80, "0", R"(UNIT["yard",0.9144])"), "unit is neither the metre nor the U.S. survey foot"),
      Row(wkt("6378418.941,298.257222101", "0", R"(UNIT["metre",1])"), "neither the ellipsoid"),
      Row(wkt(grs80, "2.33722917", R"(UNIT["metre",1])"), "meridian of Greenwich"),
      Row(wkt(grs80 + "],TOWGS84[1,2,3,0,0,0,0", "0", R"(UNIT["metre",1])"), "datum shift of its own"),
      Row(wkt(grs80, "0", R"(UNIT["metre",1],AXIS["S",SOUTH],AXIS["W",WEST])"), "more than a map projection"),
      // What PROJ would take without a word: feet, shifts, another meridian, values with a rest, misspelt names.
      Row("+proj=utm +zone=15 +units=ft", "\"+units=ft\" is the international foot"),
      Row("+proj=utm +zone=15 +units=km", "neither the metre nor the U.S. survey foot"),
      Row("+proj=utm +zone=15 +to_meter=0.3048", "no parameter"),
      Row("+proj=utm +zone=15 +datum=NAD27", "another datum"), Row("+proj=utm +zone=15 +towgs84=1,2,3", "no value"),
      Row("+proj=utm +zone=15 +pm=paris", "no parameter"), Row("+proj=utm +zone=15.5", "no value"),
      Row("+proj=utm +zone=15 +zone=14", "second value"), Row("+zone=15", "+proj="),
      Row("+proj=tmerc +lon_0=-93 +x_0=1O0", "no value"), Row("+proj=tmerc +lon_0=-93,5", "no value"),
      Row("+proj=tmerc +lon_0=-93d60'", "no value"), Row("+proj=tmerc +lon_0", "no value"),
      Row("+proj=tmerc +lon_O=-93", "no parameter"), Row("+proj=utm +zone=15 +a=6378137", "neither the ellipsoid"),
      // What names files or operations of PROJ's own, wherever it stands.
      Row("+proj=utm +zone=15 +nadgrids=@conus", "no parameter"), Row("+init=epsg:26915", "no parameter"),
      Row("+proj=hgridshift +grids=us_noaa_conus.tif", "no parameter"), Row("init=epsg:26915", "neither"),
      Row(R"({"type":"ProjectedCRS","name":"+nadgrids=/x"})", "neither"),
      Row(wkt(grs80, "0", R"(UNIT["metre",1],extension ["PROJ4","+proj=utm +zone=15 +nadgrids=/x"])"), "\"extension\""),
      Row(wkt(grs80 + R"(,EXTENSION["PROJ4_GRIDS","/x"])", "0", R"(UNIT["metre",1])"), "\"EXTENSION\""),
      Row(R"(PROJCRS["z",CONVERSION["c",METHOD[ "proj-based operation method: +proj=hgridshift +grids=/x"]]])",
          "method"),
      Row(R"(PROJCS["z",PROJECTION("PROJ hgridshift grids=/x")])", "method"),
      Row(R"(PROJCRS["z",CONVERSION["c",METHOD["NTv2"],PARAMETERFILE["f","/x"]]])", "\"PARAMETERFILE\""),
      Row("PROJCS[\u201Cz \" \u201D,EXTENSION[\"PROJ4\",\"/x\"]]", "quotation marks"),
      // What is no map projection of these parts.
      Row("+proj=nothing", "cannot make"), Row("+proj=lcc +lat_1=46 +lat_2=-46 +lon_0=-93", "cannot make"),
      Row("+proj=tmerc +lat_0=45 +lon_0=93", "fits the area"),
      Row("+proj=lcc +lat_1=45 +lat_2=46 +lon_0=93", "fits the area"), Row("+proj=longlat", "fits the area"),
      Row("+proj=noop", "fits the area"), Row("+proj=tmerc +lon_0=-93 +k=3.28083333333", "fits the area")};
  for (const auto& [definition, part] : cases) {
    const text::Result<Parameters> read = readDefinition(context.get(), definition, Datum::nad83);
    EXPECT_NE(read.error.find(part), std::string::npos) << definition << ": " << read.error;
  }
  EXPECT_NE(readDefinition(context.get(), "+proj=utm +zone=15", std::nullopt).error.find("clrk66"), std::string::npos);
}

}  // namespace
}  // namespace tovak::engine
