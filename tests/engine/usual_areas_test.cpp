// The usual areas that come with the program: what they detect in points whose coordinates were computed elsewhere.
#include "run/usual_areas.h"

#include <fstream>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "engine_probe.h"
#include "text/number.h"

namespace tovak::engine {
namespace {

constexpr double kFeetPerMetre = 39.37 / 12.0;

struct Control {
  double latitude;
  double longitude;
  double northing;
  double easting;
};

/// The control points in metres of one zone, by the place of its easting in the file's rows.
std::vector<Control> controls(int column) {
  std::vector<Control> points;
  std::ifstream file(TOVAK_REFERENCE_FILE);
  for (std::string line; std::getline(file, line);) {
    std::vector<double> values;
    std::istringstream fields(line);
    for (std::string field; std::getline(fields, field, ',');) values.push_back(text::leadingNumber(field));
    const auto at = static_cast<std::size_t>(column);
    if (values.size() > 20 && values[0] > 0) points.push_back({values[0], values[1], values[at + 1], values[at]});
  }
  return points;
}

TEST(UsualAreas, NoticeSwappedCoordinatesAndTheWrongUnit) {
  const text::Result<run::UsualAreas> areas = run::readUsualAreas(TOVAK_AREAS_FILE);
  ASSERT_TRUE(areas) << areas.error;
  const auto engine = probe::freshEngine();
  int tried = 0;
  for (const auto& [code, column] : {std::pair<std::int16_t, int>{2, 4}, {3, 6}, {4, 8}, {1, 12}}) {
    const run::UsualArea* const area = run::findUsualArea(*areas, code);
    ASSERT_NE(area, nullptr);
    const std::string feet = std::to_string(code);
    const run::AreaLimits inFeet = run::areaLimits(*engine, *area, feet);
    const run::AreaLimits inMetres = run::areaLimits(*engine, *area, feet + 'M');
    const auto passes = [&](const std::string& text, const run::AreaLimits& limits, double northing, double easting) {
      return limits.holds(northing, easting) &&
             probe::convert(*engine, text, "0", {.northing = northing, .easting = easting}).code <= 0;
    };
    for (const Control& p : controls(column)) {
      const bool own = p.latitude >= area->south && p.latitude <= area->north && p.longitude >= area->west &&
                       p.longitude <= area->east;
      if (!own) continue;
      ++tried;
      SCOPED_TRACE(feet + ", latitude " + std::to_string(p.latitude));
      const double northFeet = p.northing * kFeetPerMetre;
      const double eastFeet = p.easting * kFeetPerMetre;
      EXPECT_TRUE(passes(feet + 'M', inMetres, p.northing, p.easting));
      EXPECT_TRUE(passes(feet, inFeet, northFeet, eastFeet));
      EXPECT_FALSE(passes(feet + 'M', inMetres, p.easting, p.northing)) << "swapped";
      EXPECT_FALSE(passes(feet, inFeet, eastFeet, northFeet)) << "swapped";
      EXPECT_FALSE(passes(feet, inFeet, p.northing, p.easting)) << "metres taken for feet";
      EXPECT_FALSE(passes(feet + 'M', inMetres, northFeet, eastFeet)) << "feet taken for metres";
    }
  }
  EXPECT_GT(tried, 30);
}

}  // namespace
}  // namespace tovak::engine
