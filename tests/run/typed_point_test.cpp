#include "run/typed_point.h"

#include <limits>

#include <gtest/gtest.h>

namespace tovak::run {
namespace {

using text::AngleForm;

TEST(EntryHint, TellsHowCoordinatesAreTyped) {
  constexpr const char* kPacked = "DD MM SS.sssss  or  DDMMSS.sssss  or  DD.MMSSsssss";
  const struct {
    std::int16_t code;
    bool metres;
    AngleForm form;
    bool chosen;
    const char* hint;
  } cases[] = {
      {0, false, AngleForm::DegreesMinutesSeconds, true, kPacked},
      {103, true, AngleForm::DegreesMinutesSeconds, false, kPacked},
      {0, false, AngleForm::DecimalDegrees, true, "DD.ddddddddd"},
      {0, false, AngleForm::DecimalDegrees, false, kPacked},
      {103, false, AngleForm::DegreesDecimalMinutes, true, "DDMM.mmmmmmm"},
      {103, false, AngleForm::DegreesDecimalMinutes, false, kPacked},
      {4, true, AngleForm::DecimalDegrees, true, "Metric Plane Coordinates"},
      {4, false, AngleForm::DecimalDegrees, true, "English Plane Coordinates"},
  };
  for (const auto& c : cases) {
    RunSettings settings;
    settings.SourceProjectionCode = c.code;
    settings.source.metres = c.metres;
    settings.latLongForm = c.form;
    settings.latLongFormChosen = c.chosen;
    EXPECT_EQ(entryHint(settings), c.hint) << "projection " << c.code;
  }
}

TEST(TypedPoint, TakesOnlyWholeTextsThatAreCoordinates) {
  constexpr AngleForm kS = AngleForm::DegreesMinutesSeconds;
  constexpr AngleForm kD = AngleForm::DecimalDegrees;
  constexpr AngleForm kM = AngleForm::DegreesDecimalMinutes;
  constexpr const char* kTaken = "";
  const struct {
    bool latLong;
    AngleForm form;
    const char* northing;
    const char* easting;
    const char* fault;
  } cases[] = {
      {false, kS, "4950000.123", "500000.456", kTaken},
      {false, kS, "-4950060.99", "+5", kTaken},
      {false, kS, "45x", "5", "The northing/Y \"45x\" is not a number."},
      {false, kS, "45", "5,000", "The easting/X \"5,000\" is not a number."},
      {false, kS, "45", "-", "The easting/X \"-\" is not a number."},
      {false, kS, "1e999", "5", "The northing/Y \"1e999\" is not a number."},
      {false, kS, "nan", "5", "The northing/Y \"nan\" is not a number."},
      {true, kS, "453015.5", "-931530", kTaken},
      {true, kS, "45.30155", "93.1530", kTaken},
      {true, kS, "45x", "931530", "The latitude \"45x\" is not a number."},
      {true, kS, "453015.5N", "931530", "The latitude \"453015.5N\" is not a number."},
      {true, kS, "456015.5", "931530", "The latitude \"456015.5\" has minutes or seconds that are not below 60."},
      {true, kS, "453015.5", "93.1560", "The longitude \"93.1560\" has minutes or seconds that are not below 60."},
      {true, kS, "900000", "1800000", kTaken},
      {true, kS, "900000.1", "931530", "The latitude \"900000.1\" is more than 90 degrees."},
      {true, kD, "45.9999", "-93.9999", kTaken},
      {true, kD, "453015.5", "93.5", "The latitude \"453015.5\" is more than 90 degrees."},
      {true, kD, "45.5", "-180.1", "The longitude \"-180.1\" is more than 180 degrees."},
      {true, kM, "4530.25", "9315.5", kTaken},
      {true, kM, "4560.25", "9315.5", "The latitude \"4560.25\" has minutes or seconds that are not below 60."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.northing) + " " + c.easting);
    PointRecord point;
    point.InNorthLat = -1;
    const TypedTexts texts = {.northing = c.northing, .easting = c.easting};
    EXPECT_EQ(takeTypedPoint(texts, c.latLong, c.form, point).value_or(kTaken), c.fault);
    EXPECT_EQ(point.InNorthLat == -1, c.fault != std::string(kTaken));
  }
}

TEST(TypedPoint, FillsTheRecordWithWhatWasTyped) {
  PointRecord point;
  resetPoint(point);
  const TypedTexts texts = {.number = "12",
                            .name = "Iron, found",
                            .northing = "453015.5",
                            .easting = "-931530",
                            .elevation = 812.25,
                            .geoid = -27.125,
                            .ellipsoid = 785.125};
  ASSERT_EQ(takeTypedPoint(texts, true, AngleForm::DegreesMinutesSeconds, point), std::nullopt);
  EXPECT_EQ(point.pointNumber, "12");
  EXPECT_EQ(point.description, "Iron, found");
  EXPECT_EQ(point.InNorthLat, 453015.5);
  EXPECT_EQ(point.InEastLon, -931530);
  EXPECT_EQ(point.Elevation, 812.25);
  EXPECT_EQ(point.geoidHeight, "-27.1250");
  EXPECT_EQ(point.ellipsoidHeight, "785.1250");

  TypedTexts without = texts;
  without.geoid = without.ellipsoid = 0;
  ASSERT_EQ(takeTypedPoint(without, false, AngleForm::DecimalDegrees, point), std::nullopt);
  EXPECT_EQ(point.geoidHeight, "");
  EXPECT_EQ(point.ellipsoidHeight, "");

  without.elevation = std::numeric_limits<double>::infinity();
  EXPECT_EQ(takeTypedPoint(without, false, AngleForm::DecimalDegrees, point), "A height is too large to be a number.");
}

}  // namespace
}  // namespace tovak::run
