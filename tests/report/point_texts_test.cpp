#include "report/point_texts.h"

#include <gtest/gtest.h>

namespace tovak::report {
namespace {

using text::AngleForm;

TEST(PointTexts, HaveThePrecisionAndFormOfTheRun) {
  constexpr AngleForm kS = AngleForm::DegreesMinutesSeconds;
  constexpr AngleForm kD = AngleForm::DecimalDegrees;
  constexpr AngleForm kM = AngleForm::DegreesDecimalMinutes;
  const struct {
    std::int16_t source;
    std::int16_t target;
    AngleForm form;
    int accuracy;
    PointTexts texts;
  } cases[] = {
      {0, 4, kS, 0, {"45 30 15.50000", "-93 15 00.00000", "400123.457", "2500000.500", "812.255"}},
      {103, 4, kM, 2, {"45 30 15.50000", "-93 15 00.00000", "400123.5", "2500000.5", "812.3"}},
      {0, 4, kD, 3, {"45.504305556", "-93.250000000", "400123", "2500000", "812"}},
      {4, 5, kD, 4, {"50", "-90", "400120", "2500000", "810"}},
  };
  PointTexts texts;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.texts.northing + " with precision " + std::to_string(c.accuracy));
    run::PointRecord point;
    point.InNorthLat = 45.50430555555556;
    point.InEastLon = -93.25;
    point.OutNorthLat = 400123.4567;
    point.OutEastLon = 2500000.5;
    point.Elevation = 812.2552;
    run::RunSettings settings;
    settings.SourceProjectionCode = c.source;
    settings.TargetProjectionCode = c.target;
    settings.latLongForm = c.form;
    settings.accuracy = c.accuracy;
    makePointTexts(point, settings, texts);
    EXPECT_EQ(texts.northing, c.texts.northing);
    EXPECT_EQ(texts.easting, c.texts.easting);
    EXPECT_EQ(texts.targetNorthing, c.texts.targetNorthing);
    EXPECT_EQ(texts.targetEasting, c.texts.targetEasting);
    EXPECT_EQ(texts.elevation, c.texts.elevation);
  }
}

TEST(PointTexts, OfALatitudeAndLongitudeTarget) {
  run::PointRecord point;
  // Seconds that round to 60 carry into the minutes, and those into the degrees.
  point.OutNorthLat = 44.9999999999;
  point.OutEastLon = -0.0001;
  run::RunSettings settings;
  settings.SourceProjectionCode = 4;
  settings.TargetProjectionCode = 103;
  PointTexts texts;
  makePointTexts(point, settings, texts);
  EXPECT_EQ(texts.targetNorthing, "45 00 00.00000");
  EXPECT_EQ(texts.targetEasting, "-00 00 00.36000");
}

}  // namespace
}  // namespace tovak::report
