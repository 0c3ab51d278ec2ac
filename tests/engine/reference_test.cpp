// The systems of the catalogue against figures that were computed elsewhere.
#include <cmath>
#include <fstream>
#include <map>
#include <span>
#include <string>
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

/// The coordinates of one and the same point in one system, in the unit of `text`.
struct Figure {
  std::string text;
  double northing;
  double easting;
};

bool isAngle(const std::string& text) {
  return text == "0" || text == "103";
}
bool isMetric(const std::string& text) {
  return text.ends_with('M');
}
Datum datumOf(const Figure& figure) {
  return findSystem(readProjectionText(figure.text)->code)->datum;
}

double tolerance(const std::string& text) {
  if (isAngle(text)) return kAngleTolerance;
  return isMetric(text) ? kLengthTolerance : kLengthTolerance * kFeetPerMetre;
}

/// The same figure with the other unit of length.
Figure inOtherUnit(Figure figure) {
  if (isAngle(figure.text)) return figure;
  const double factor = isMetric(figure.text) ? kFeetPerMetre : 1.0 / kFeetPerMetre;
  figure.northing *= factor;
  figure.easting *= factor;
  if (isMetric(figure.text)) {
    figure.text.pop_back();
  } else {
    figure.text += 'M';
  }
  return figure;
}

void expectConverts(TovakX& engine, const Figure& source, const Figure& target) {
  SCOPED_TRACE(source.text + " to " + target.text + ", northing " + std::to_string(source.northing));
  const probe::Result result =
      probe::convert(engine, source.text, target.text, {.northing = source.northing, .easting = source.easting});
  ASSERT_LE(result.code, 0) << engine.ErrorText(static_cast<std::int16_t>(result.code));
  EXPECT_NEAR(result.northing, target.northing, tolerance(target.text));
  EXPECT_NEAR(result.easting, target.easting, tolerance(target.text));
}

/// From every figure to every other one, in either unit, where the two sides' datums are as asked.
void expectAgreement(TovakX& engine, std::span<const Figure> figures, bool acrossDatums) {
  for (const Figure& source : figures) {
    for (const Figure& target : figures) {
      if ((datumOf(source) != datumOf(target)) != acrossDatums) continue;
      expectConverts(engine, source, target);
      expectConverts(engine, inOtherUnit(source), target);
      expectConverts(engine, source, inOtherUnit(target));
      if (testing::Test::HasFailure()) return;
    }
  }
}

// One point in every system, so that a wrong constant shows without further files.
const Figure kOnePoint[] = {
    {"0", 48.946947602, -95.790044250},   {"2M", 375486.9114, 602977.3482},     {"3M", 539961.7411, 687089.5767},
    {"4M", 762920.1128, 668495.8430},     {"266M", 5426525.1524, 735016.7346},  {"1M", 5425310.2654, 295723.4839},
    {"267M", 5458904.6108, -143255.4941}, {"103", 48.946962679, -95.789779406}, {"105", 903827.8949, 1353644.5884},
    {"106", 1443439.5514, 1629611.6533},  {"107", 2174921.3859, 1568606.9274},  {"104M", 5425092.3403, 295736.3801},
    {"264M", 5426308.7987, 735043.5937},  {"265M", 5458686.2250, -143256.6103},
};

TEST(Reference, OnePointInEverySystem) {
  ASSERT_EQ(std::size(kOnePoint), coordinateSystems().size());
  const auto engine = probe::freshEngine();
  expectAgreement(*engine, kOnePoint, false);
}

TEST(Reference, OnePointAcrossDatums) {
  const auto engine = probe::freshEngine();
  TOVAK_SKIP_WITHOUT_GRID(*engine);
  expectAgreement(*engine, kOnePoint, true);
}

std::vector<std::string> split(const std::string& line) {
  std::vector<std::string> fields(1);
  for (const char c : line) {
    if (c == ',') {
      fields.emplace_back();
    } else if (c != '\r') {
      fields.back() += c;
    }
  }
  return fields;
}

/// Which columns of the file hold which system.
const struct {
  const char* text;
  const char* northing;
  const char* easting;
} kColumns[] = {
    {"0", "lat83", "lon83"},
    {"2M", "spn83_n", "spn83_e"},
    {"3M", "spc83_n", "spc83_e"},
    {"4M", "sps83_n", "sps83_e"},
    {"266M", "utm14_n", "utm14_e"},
    {"1M", "utm15_n", "utm15_e"},
    {"267M", "utm16_n", "utm16_e"},
    {"103", "lat27", "lon27"},
    {"105", "spn27_ft_n", "spn27_ft_e"},
    {"106", "spc27_ft_n", "spc27_ft_e"},
    {"107", "sps27_ft_n", "sps27_ft_e"},
    {"104M", "utm15_27_n", "utm15_27_e"},
};

/// The points of the reference file; none when there is no file.
std::vector<std::vector<Figure>> controlPoints() {
  std::ifstream file(TOVAK_REFERENCE_FILE);
  std::map<std::string, std::size_t> columns;
  std::vector<std::vector<Figure>> points;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line.front() == '#') continue;
    const std::vector<std::string> fields = split(line);
    if (columns.empty()) {
      for (std::size_t i = 0; i < fields.size(); ++i) columns[fields[i]] = i;
      continue;
    }
    std::vector<Figure>& point = points.emplace_back();
    for (const auto& column : kColumns) {
      point.push_back({column.text, text::strictNumber(fields.at(columns.at(column.northing))).value(),
                       text::strictNumber(fields.at(columns.at(column.easting))).value()});
    }
  }
  return points;
}

#define TOVAK_SKIP_WITHOUT_CONTROL_POINTS(points) \
  if ((points).empty()) GTEST_SKIP() << "the reference file " << TOVAK_REFERENCE_FILE << " is not there"

TEST(Reference, ControlPointsOnOneDatum) {
  const auto points = controlPoints();
  TOVAK_SKIP_WITHOUT_CONTROL_POINTS(points);
  const auto engine = probe::freshEngine();
  for (const auto& point : points) expectAgreement(*engine, point, false);
}

TEST(Reference, ControlPointsAcrossDatums) {
  const auto points = controlPoints();
  TOVAK_SKIP_WITHOUT_CONTROL_POINTS(points);
  const auto engine = probe::freshEngine();
  TOVAK_SKIP_WITHOUT_GRID(*engine);
  for (const auto& point : points) expectAgreement(*engine, point, true);
}

TEST(Reference, SwappedOrMiscalledCoordinatesOfControlPointsAreRefused) {
  const auto points = controlPoints();
  TOVAK_SKIP_WITHOUT_CONTROL_POINTS(points);
  const auto engine = probe::freshEngine();
  for (const auto& point : points) {
    for (const Figure& figure : point) {
      SCOPED_TRACE(figure.text + ", northing " + std::to_string(figure.northing));
      // State plane northings and eastings are of one size, so a swap may stay within the area there.
      if (isAngle(figure.text) || std::fabs(figure.northing) > 4e6) {
        const Point swapped = {.northing = figure.easting, .easting = figure.northing};
        EXPECT_GE(probe::convert(*engine, figure.text, figure.text, swapped).code, 7);
      }
      if (!isAngle(figure.text) && datumOf(figure) == Datum::nad83) {
        const Figure feet = inOtherUnit(figure);
        const Point feetAsMetres = {.northing = feet.northing, .easting = feet.easting};
        EXPECT_GE(probe::convert(*engine, figure.text, "0", feetAsMetres).code, 7);
      }
    }
  }
}

}  // namespace
}  // namespace tovak::engine
