#include "report/point_texts.h"

#include <gtest/gtest.h>

namespace tovak::report {
namespace {

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
