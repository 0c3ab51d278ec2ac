// What the engine does beside projecting: errors, units, signs and texts.
#include <cmath>
#include <limits>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "engine/catalogue.h"
#include "engine_probe.h"

namespace tovak::engine {
namespace {

using probe::convert;
using probe::Result;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(Conversion, RefusesWhatItCannotConvertAndGoesOn) {
  const auto engine = probe::freshEngine();
  const Result good = convert(*engine, "0", "4", {45.0, -94.0, 100.0});
  ASSERT_EQ(good.code, 0);
  const struct {
    const char* source;
    const char* target;
    Point point;
    Error error;
  } cases[] = {
      {"5", "0", {45.0, -94.0, 0.0}, Error::unknownSource},
      {"0", "268M", {45.0, -94.0, 0.0}, Error::unknownTarget},
      {"5", "6", {45.0, -94.0, 0.0}, Error::unknownSource},
      {"-1", "0", {45.0, -94.0, 0.0}, Error::unknownSource},
      {"", "0", {45.0, -94.0, 0.0}, Error::unreadableText},
      {"0", "", {45.0, -94.0, 0.0}, Error::unreadableText},
      {"", "", {45.0, -94.0, 0.0}, Error::unreadableText},
      {"5", "2 meters", {45.0, -94.0, 0.0}, Error::unreadableText},
      // Angles: on the limits and just beyond, swapped.
      {"0", "4", {41.0, -100.0, 0.0}, Error::none},
      {"0", "4", {51.0, -86.0, 0.0}, Error::none},
      {"0", "4", {40.99999999, -94.0, 0.0}, Error::latitudeOutside},
      {"0", "4", {51.00000001, -94.0, 0.0}, Error::latitudeOutside},
      {"103", "107", {45.0, -100.00000001, 0.0}, Error::longitudeOutside},
      {"103", "107", {45.0, -85.99999999, 0.0}, Error::longitudeOutside},
      {"0", "0", {-94.0, 45.0, 0.0}, Error::latitudeOutside},
      {"0", "4", {-45.0, -94.0, 0.0}, Error::latitudeOutside},
      {"0", "4", {45.0, -94.0 - 360.0, 0.0}, Error::longitudeOutside},
      // Plane coordinates: swapped, the wrong unit, and so far off that an inverse projection comes round.
      {"1M", "0", {500000.0, 5000000.0, 0.0}, Error::latitudeOutside},
      {"1M", "0", {16404000.0, 1640416.0, 0.0}, Error::latitudeOutside},
      {"4M", "0", {1000000.0, 2624666.0, 0.0}, Error::longitudeOutside},
      {"1M", "0", {5000000.0 + 39991000.0, 500000.0, 0.0}, Error::latitudeOutside},
      {"1", "1M", {5000000.0 - 2 * 131200000.0, 500000.0, 0.0}, Error::latitudeOutside},
      {"1M", "1M", {5000000.0, 1e8, 0.0}, Error::longitudeOutside},
      {"4M", "0", {1e30, 800000.0, 0.0}, Error::latitudeOutside},
      {"4M", "0", {300000.0, -1e300, 0.0}, Error::longitudeOutside},
      // Numbers that are none.
      {"0", "4", {kNan, -94.0, 0.0}, Error::notComputed},
      {"0", "0", {45.0, kNan, 0.0}, Error::notComputed},
      {"4M", "0", {300000.0, -kInfinity, 0.0}, Error::notComputed},
      {"0", "4", {45.0, -94.0, kInfinity}, Error::notComputed},
      {"0", "0", {45.0, -94.0, kNan}, Error::notComputed},
      {"0M", "0", {45.0, -94.0, 1e308}, Error::notComputed},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.source) + " to " + c.target + ", " + std::to_string(c.point.northing) + " " +
                 std::to_string(c.point.easting));
    for (int repetition = 0; repetition < 2; ++repetition) {
      const Result result = convert(*engine, c.source, c.target, c.point);
      EXPECT_EQ(result.code, static_cast<int>(c.error));
      if (c.error == Error::none) continue;
      EXPECT_EQ(result.northing, probe::kUntouched);
      EXPECT_EQ(result.easting, probe::kUntouched);
      EXPECT_TRUE(result.elevation == c.point.elevation || std::isnan(c.point.elevation));
    }
    const Result next = convert(*engine, "0", "4", {45.0, -94.0, 100.0});
    EXPECT_EQ(next.code, 0);
    EXPECT_EQ(next.northing, good.northing);
    EXPECT_EQ(next.easting, good.easting);
  }
}

TEST(Conversion, ErrorTextsTellTheErrorsApart) {
  const auto engine = probe::freshEngine();
  std::set<std::string> texts;
  constexpr std::int16_t kCodes[] = {1, 2, 3, 4, 5, 7, 8, 9, 99};
  for (const std::int16_t code : kCodes) texts.insert(engine->ErrorText(code));
  EXPECT_EQ(texts.size(), std::size(kCodes));
  EXPECT_EQ(engine->ErrorText(6), engine->ErrorText(99));
  EXPECT_NE(engine->ErrorText(4).find("us_noaa_conus.tif"), std::string::npos);
  EXPECT_NE(engine->ErrorText(4).find("projsync --file us_noaa_conus.tif"), std::string::npos);
  EXPECT_NE(engine->ErrorText(7).find("41 to 51"), std::string::npos) << engine->ErrorText(7);
  EXPECT_NE(engine->ErrorText(8).find("-100 to -86"), std::string::npos) << engine->ErrorText(8);
}

TEST(Conversion, ScalesTheElevationWithTheUnits) {
  const auto engine = probe::freshEngine();
  const Result plane = convert(*engine, "0", "4M", {45.0, -94.0, 0.0});
  const struct {
    const char* source;
    const char* target;
    double elevation;
    double expected;
  } cases[] = {
      {"0", "4", 812.3, 812.3},     {"0M", "4M", 812.3, 812.3}, {"0M", "4", 1200.0, 3937.0},
      {"0", "4M", 3937.0, 1200.0},  {"0M", "0", 12.0, 39.37},   {"0", "0M", -39.37, -12.0},
      {"4M", "0", 0.0, 0.0},        {"4M", "1M", 0.1, 0.1},     {"4M", "4", 1200.0, 3937.0},
      {"4M", "4M", 1e-300, 1e-300},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.source) + " to " + c.target);
    const bool fromAngles = c.source[0] == '0';
    const Point point = {fromAngles ? 45.0 : plane.northing, fromAngles ? -94.0 : plane.easting, c.elevation};
    const Result result = convert(*engine, c.source, c.target, point);
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.elevation, c.expected);
  }
}

TEST(Conversion, LeavesTheCoordinatesOfOneSystemAsTheyAre) {
  const auto engine = probe::freshEngine();
  const struct {
    const char* source;
    const char* target;
    Point point;
    Point expected;
  } cases[] = {
      {"0", "0", {45.12345678901234, -93.98765432109876, 0.0}, {45.12345678901234, -93.98765432109876, 0.0}},
      {"0M", "0", {45.12345678901234, -93.98765432109876, 0.0}, {45.12345678901234, -93.98765432109876, 0.0}},
      {"103", "103", {45.1, 93.9, 0.0}, {45.1, -93.9, 0.0}},
      {"4", "4", {1000000.123456, 2600000.654321, 0.0}, {1000000.123456, 2600000.654321, 0.0}},
      {"4M", "4", {300000.0, 780000.0, 0.0}, {984250.0, 780000.0 * 39.37 / 12.0, 0.0}},
      {"4", "4M", {984250.0, 2559050.0, 0.0}, {300000.0, 780000.0, 0.0}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.source) + " to " + c.target);
    const Result result = convert(*engine, c.source, c.target, c.point);
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.northing, c.expected.northing);
    EXPECT_EQ(result.easting, c.expected.easting);
  }
}

TEST(Conversion, TakesALongitudeOfEitherSignAsWest) {
  const auto engine = probe::freshEngine();
  for (const char* source : {"0", "103"}) {
    const char* target = source[0] == '0' ? "4" : "107";
    const Result west = convert(*engine, source, target, {45.0, -93.5, 0.0});
    const Result unsignedWest = convert(*engine, source, target, {45.0, 93.5, 0.0});
    EXPECT_EQ(west.code, 0);
    EXPECT_EQ(unsignedWest.code, 0);
    EXPECT_EQ(unsignedWest.northing, west.northing);
    EXPECT_EQ(unsignedWest.easting, west.easting);
  }
  // An easting west of the origin keeps its sign.
  EXPECT_EQ(convert(*engine, "267M", "267M", {5458904.6108, -143255.4941, 0.0}).easting, -143255.4941);
}

TEST(Conversion, SaysWhatTheResultIs) {
  const auto engine = probe::freshEngine();
  const struct {
    const char* target;
    const char* form;
    const char* info;
  } cases[] = {
      {"0", "S", "Latitude and Longitude, NAD83 (degrees, minutes, seconds)"},
      {"0", "", "Latitude and Longitude, NAD83 (degrees, minutes, seconds)"},
      {"0", "D", "Latitude and Longitude, NAD83 (decimal degrees)"},
      {"4", "S", "State plane South, NAD83"},
      {"4", "D", "State plane South, NAD83"},
      {"267M", "", "Universal Transverse Mercator zone 16, NAD83"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.target) + " " + c.form);
    const Point point = {.northing = 45.25, .easting = -94.125, .elevation = 7.0};
    const Result result = convert(*engine, "0", c.target, point, c.form);
    EXPECT_EQ(result.info, c.info);
    const Result other = convert(*engine, "0", c.target, point, "S");
    EXPECT_EQ(result.northing, other.northing);
    EXPECT_EQ(result.easting, other.easting);
    EXPECT_EQ(result.elevation, other.elevation);
  }
}

TEST(Conversion, NamesItsSystems) {
  const auto engine = probe::freshEngine();
  EXPECT_EQ(engine->GetVersion(), 103);
  EXPECT_EQ(engine->GetProjectionData(0), "Latitude and Longitude, NAD83~0");
  EXPECT_EQ(engine->GetProjectionData(107), "State plane South, NAD27~107");
  EXPECT_NE(engine->GetProjectionData(-263).find("None Selected"), std::string::npos);
  EXPECT_EQ(engine->GetProjectionData(-1), "");

  const std::set<std::int16_t> utm = {1, 104, 264, 265, 266, 267};
  int known = 0;
  for (std::int16_t code = 0; code <= 268; ++code) {
    SCOPED_TRACE(code);
    const std::string data = engine->GetProjectionData(code);
    EXPECT_EQ(data.starts_with("Universal Transverse Mercator"), utm.contains(code));
    if (data.empty()) continue;
    ++known;
    EXPECT_EQ(data.substr(data.find('~') + 1), std::to_string(code));
    EXPECT_EQ(data.find("NAD27") != std::string::npos, code >= 103 && code <= 265);
  }
  EXPECT_EQ(known, 14);

  std::string filled = "old";
  EXPECT_EQ(engine->GetProjectionFromText("Anoka county", filled), 999);
  EXPECT_EQ(filled, "");
}

}  // namespace
}  // namespace tovak::engine
