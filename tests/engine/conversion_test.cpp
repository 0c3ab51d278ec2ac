// What the engine does besides projecting: errors, units, signs and texts.
#include <cmath>
#include <limits>
#include <set>

#include <gtest/gtest.h>

#include "engine/catalogue.h"
#include "engine_probe.h"

namespace tovak::engine {
namespace {

using probe::Result;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

constexpr Point kPoint = {45.0, -94.0, 0.0};

class Conversion : public testing::Test {
 protected:
  Result convert(const std::string& source, const std::string& target, Point point, std::string_view form = "S") {
    return probe::convert(*engine, source, target, point, form);
  }
  const std::unique_ptr<TovakX> engine = probe::freshEngine();
};

TEST_F(Conversion, RefusesWhatItCannotConvertAndGoesOn) {
  const Result good = convert("0", "4", {45.0, -94.0, 100.0});
  using Row = std::tuple<const char*, const char*, Point, int>;
  const Row cases[] = {
      Row("5", "0", kPoint, 1), Row("5", "7", kPoint, 1), Row("-1", "0", kPoint, 1), Row("0", "268M", kPoint, 2),
      Row("263", "0", kPoint, 10), Row("0", "263M", kPoint, 10), Row("", "", kPoint, 3),
      Row("0", "2 meters", kPoint, 3),
      // Angles: on the limits and just beyond, swapped.
      Row("0", "4", {41.0, -100.0}, 0), Row("0", "4", {51.0, -86.0}, 0), Row("0", "4", {40.99999999, -94.0}, 7),
      Row("0", "4", {51.00000001, -94.0}, 7), Row("103", "107", {45.0, -100.00000001}, 8),
      Row("103", "107", {45.0, -85.99999999}, 8), Row("0", "0", {-94.0, 45.0}, 7),
      // Plane coordinates: swapped, the wrong unit, and so far off that an inverse projection comes round.
      Row("1M", "0", {500000.0, 5000000.0}, 7), Row("1M", "0", {16404000.0, 1640416.0}, 7),
      Row("1M", "0", {5000000.0 + 39991000.0, 500000.0}, 7), Row("1", "1M", {5000000.0 - 2 * 131200000.0, 500000.0}, 7),
      Row("1M", "1M", {5000000.0, 1e8}, 8), Row("4M", "0", {1e30, 800000.0}, 7), Row("4M", "0", {300000.0, -1e300}, 8),
      // What is left of blank columns, inside the area served or not; beside it, and 0 as an angle.
      Row("82M", "0", {0.0, 0.0}, 6), Row("82M", "82", {0.0, -0.0}, 6), Row("4", "4", {-0.0, 0.0}, 6),
      Row("1M", "104", {0.0, 0.0}, 6), Row("82M", "0", {0.0, 1e-300}, 0), Row("0", "4", {0.0, 0.0}, 7),
      // Numbers that are none.
      Row("0", "4", {kNan, -94.0}, 5), Row("0", "0", {45.0, kNan}, 5), Row("4M", "0", {300000.0, -kInfinity}, 5),
      Row("0", "0", {45.0, -94.0, kNan}, 5), Row("0M", "0", {45.0, -94.0, 1e308}, 5)};
  for (const auto& [source, target, point, error] : cases) {
    SCOPED_TRACE(testing::Message() << source << " to " << target << ", " << point.northing << ' ' << point.easting);
    for (const bool wanted : {true, false}) {
      engine->wantResultTexts(wanted);
      const Result result = convert(source, target, point);
      EXPECT_EQ(result.code, error);
      EXPECT_EQ(result.northing == probe::kUntouched && result.easting == probe::kUntouched, error != 0);
      EXPECT_TRUE(result.elevation == point.elevation || std::isnan(point.elevation));
    }
    const Result next = convert("0", "4", {45.0, -94.0, 100.0});
    EXPECT_TRUE(next.code == 0 && next.northing == good.northing && next.easting == good.easting);
  }
}

TEST_F(Conversion, TellsTheErrorsApartInShortTexts) {
  std::set<std::string> texts;
  for (int code = -32768; code <= 32767; ++code) texts.insert(engine->ErrorText(static_cast<std::int16_t>(code)));
  EXPECT_EQ(texts.size(), 11U + 1U);
  // The agency's files get them in front of lines that are divided at commas.
  for (const std::string& text : texts) EXPECT_TRUE(text.size() < 100 && text.find(',') == std::string::npos) << text;
  EXPECT_NE(engine->ErrorText(7).find("41 to 51"), std::string::npos);
  EXPECT_NE(engine->ErrorText(8).find("-100 to -86"), std::string::npos);
}

TEST_F(Conversion, ChangesUnitsAndNothingElseWithinOneSystem) {
  const Point exact = {45.12345678901234, -93.98765432109876, 0.0};
  const std::tuple<const char*, const char*, Point, Point> cases[] = {
      {"0M", "0", {45.1, -93.9, 12.0}, {45.1, -93.9, 39.37}},
      {"0", "0M", {45.1, -93.9, -39.37}, {45.1, -93.9, -12.0}},
      {"0", "0", exact, exact},
      {"103", "103", {45.1, 93.9, 0.0}, {45.1, -93.9, 0.0}},
      {"4", "4", {1000000.123456, 2600000.654321, 812.3}, {1000000.123456, 2600000.654321, 812.3}},
      {"4M", "4", {300000.0, 780000.0, 1200.0}, {984250.0, 780000.0 * 39.37 / 12.0, 3937.0}},
      {"4", "4M", {984250.0, 2559050.0, 3937.0}, {300000.0, 780000.0, 1200.0}},
      // An easting west of the origin keeps its sign.
      {"267M", "267M", {5458904.6108, -143255.4941, 1e-300}, {5458904.6108, -143255.4941, 1e-300}}};
  for (const bool wanted : {true, false}) {
    engine->wantResultTexts(wanted);
    for (const auto& [source, target, point, expected] : cases) {
      const Result result = convert(source, target, point);
      EXPECT_TRUE(result.northing == expected.northing && result.easting == expected.easting) << source << target;
      EXPECT_EQ(result.elevation, expected.elevation) << source << " to " << target;
    }
  }
  EXPECT_EQ(convert("0M", "4", {45.0, -94.0, 1200.0}).elevation, 3937.0);
  EXPECT_EQ(convert("0", "4", {45.0, 93.5, 0.0}).easting, convert("0", "4", {45.0, -93.5, 0.0}).easting);
}

TEST_F(Conversion, SaysWhatTheResultIs) {
  const auto info = [this](const char* target, const char* form) { return convert("0", target, kPoint, form).info; };
  EXPECT_EQ(info("0", "S"), "0-00-00.00 1 Latitude and Longitude, NAD83 (degrees, minutes, seconds)");
  EXPECT_EQ(info("0", ""), info("0", "S"));
  EXPECT_EQ(info("0", "D"), "0-00-00.00 1 Latitude and Longitude, NAD83 (decimal degrees)");
  EXPECT_EQ(info("4", "D"), "0-00-00.00 0.999959869 State plane South, NAD83");
  EXPECT_EQ(info("2M", "S"), "-0-40-01.55 1.001103052 State plane North, NAD83");
  EXPECT_EQ(info("266", "S"), "3-32-24.25 1.001510080 Universal Transverse Mercator zone 14, NAD83");
  // Within one system too, and at the position on the target's datum.
  const Result north = convert("0", "2", kPoint);
  EXPECT_EQ(convert("2", "2M", {north.northing, north.easting}).info, north.info);
  // Nothing once nobody reads it, and the same coordinates.
  engine->wantResultTexts(false);
  const Result silent = convert("0", "2", kPoint);
  EXPECT_TRUE(silent.info.empty() && silent.northing == north.northing && silent.easting == north.easting);
  engine->wantResultTexts(true);
  const Result older = convert("0", "103", kPoint);
  EXPECT_EQ(convert("0", "105", kPoint).info, convert("103", "105", {older.northing, older.easting}).info);
}

}  // namespace
}  // namespace tovak::engine
