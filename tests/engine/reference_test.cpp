// The systems of the catalogue compared with figures computed elsewhere.
#include <cmath>
#include <fstream>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "engine/catalogue.h"
#include "engine_probe.h"
#include "text/number.h"

namespace tovak::engine {
namespace {

constexpr double kLengthTolerance = 0.0002;           // metres
constexpr double kAngleTolerance = 0.00001 / 3600.0;  // degrees
constexpr double kFeetPerMetre = 39.37 / 12.0;

const std::vector<CoordinateSystem> kSystems = builtInSystems();

/// The coordinates of one and the same point in one system, in the unit of `text`.
struct Figure {
  std::string text;
  double northing;
  double easting;

  bool isAngle() const { return text == "0" || text == "103"; }
  bool isMetric() const { return text.ends_with('M'); }
  Datum datum() const { return findSystem(kSystems, readProjectionText(text)->code)->datum; }
  double tolerance() const { return isAngle() ? kAngleTolerance : kLengthTolerance * (isMetric() ? 1 : kFeetPerMetre); }
};
using Figures = std::vector<Figure>;

/// The same figure with the other unit of length.
Figure inOtherUnit(const Figure& figure) {
  if (figure.isAngle()) return figure;
  const double factor = figure.isMetric() ? kFeetPerMetre : 1.0 / kFeetPerMetre;
  const std::string text = figure.isMetric() ? figure.text.substr(0, figure.text.size() - 1) : figure.text + 'M';
  return {text, figure.northing * factor, figure.easting * factor};
}

void expectConverts(TovakX& engine, const Figure& source, const Figure& target) {
  SCOPED_TRACE(source.text + " to " + target.text + ", northing " + std::to_string(source.northing));
  const probe::Result result =
      probe::convert(engine, source.text, target.text, {.northing = source.northing, .easting = source.easting});
  ASSERT_LE(result.code, 0) << engine.ErrorText(static_cast<std::int16_t>(result.code));
  EXPECT_NEAR(result.northing, target.northing, target.tolerance());
  EXPECT_NEAR(result.easting, target.easting, target.tolerance());
}

// One point in every system, so that a wrong constant shows without further files.
const Figures kOnePoint = {
    {"0", 48.946947602, -95.790044250},   {"2M", 375486.9114, 602977.3482},     {"3M", 539961.7411, 687089.5767},
    {"4M", 762920.1128, 668495.8430},     {"266M", 5426525.1524, 735016.7346},  {"1M", 5425310.2654, 295723.4839},
    {"267M", 5458904.6108, -143255.4941}, {"103", 48.946962679, -95.789779406}, {"105", 903827.8949, 1353644.5884},
    {"106", 1443439.5514, 1629611.6533},  {"107", 2174921.3859, 1568606.9274},  {"104M", 5425092.3403, 295736.3801},
    {"264M", 5426308.7987, 735043.5937},  {"265M", 5458686.2250, -143256.6103}};

/// That point and those of the reference file.
std::vector<Figures> controlPoints() {
  std::vector<Figures> points = {kOnePoint};
  std::ifstream file(TOVAK_REFERENCE_FILE);
  for (std::string line; std::getline(file, line);) {
    if (!text::strictNumber(line.substr(0, line.find(',')))) continue;  // remarks and headings
    std::istringstream fields(line);
    const auto next = [&fields] {
      std::string field;
      std::getline(fields, field, ',');
      return text::leadingNumber(field);
    };
    Figures& point = points.emplace_back();
    for (const char* system : {"0", "103", "2M", "3M", "4M", "266M", "1M", "267M", "105", "106", "107", "104M"}) {
      Figure& figure = point.emplace_back(Figure{system, next(), next()});
      if (!figure.isAngle()) std::swap(figure.northing, figure.easting);
    }
  }
  EXPECT_EQ(points.size(), 1U + 20U);
  return points;
}

/// From every figure to every other one, in either unit, where the two sides' datums are as asked.
void expectAgreement(TovakX& engine, const std::vector<Figures>& points, bool acrossDatums) {
  for (const Figures& point : points) {
    for (const Figure& source : point) {
      for (const Figure& target : point) {
        if ((source.datum() != target.datum()) != acrossDatums) continue;
        expectConverts(engine, source, target);
        expectConverts(engine, inOtherUnit(source), target);
        expectConverts(engine, source, inOtherUnit(target));
        if (testing::Test::HasFailure()) return;
      }
    }
  }
}

TEST(Reference, EverySystemOnOneDatum) {
  ASSERT_EQ(kOnePoint.size(), kSystems.size());
  const auto points = controlPoints();
  expectAgreement(*probe::freshEngine(), points, false);
}

TEST(Reference, EverySystemAcrossDatums) {
  const auto points = controlPoints();
  const auto engine = probe::freshEngine();
  expectAgreement(*engine, points, true);
}

TEST(Reference, RefusesSwappedAndMiscalledCoordinates) {
  const auto engine = probe::freshEngine();
  for (const Figures& point : controlPoints()) {
    for (const Figure& figure : point) {
      SCOPED_TRACE(figure.text + ", northing " + std::to_string(figure.northing));
      // State plane northings and eastings are of one size, so a swap may stay within the area there.
      if (figure.isAngle() || std::fabs(figure.northing) > 4e6) {
        EXPECT_GE(probe::convert(*engine, figure.text, figure.text, {figure.easting, figure.northing, 0}).code, 7);
      }
      if (figure.isAngle() || figure.datum() == Datum::nad27) continue;
      const Figure feet = inOtherUnit(figure);
      EXPECT_GE(probe::convert(*engine, figure.text, "0", {feet.northing, feet.easting, 0}).code, 7);
    }
  }
}

}  // namespace
}  // namespace tovak::engine
