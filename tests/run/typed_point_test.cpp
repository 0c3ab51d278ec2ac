#include "run/typed_point.h"

#include <limits>

#include <gtest/gtest.h>

#include "support/golden_rows.h"
#include "support/row.h"

namespace tovak::run {
namespace {

using text::AngleForm;

TEST(EntryHint, TellsTheFormThatWasChosen) {
  RunSettings settings;
  for (const auto& [form, hint] :
       {std::pair{AngleForm::DegreesMinutesSeconds, "DD MM"}, std::pair{AngleForm::DecimalDegrees, "DD.ddddddddd"},
        std::pair{AngleForm::DegreesDecimalMinutes, "DDMM.mmmmmmm"}}) {
    settings.latLongForm = form;
    settings.latLongFormChosen = true;
    EXPECT_TRUE(entryHint(settings).starts_with(hint));
    settings.latLongFormChosen = false;
    EXPECT_TRUE(entryHint(settings).starts_with("DD MM"));
  }
}

TEST(TypedPoint, TakesOnlyWholeTextsThatAreCoordinates) {
  for (const auto& c : tests::goldenRows("typed_points.txt")) {
    const TypedTexts texts = {.northing = c[1], .easting = c[2]};
    const auto form = static_cast<AngleForm>(c[0][0]);
    const text::Result<PointRecord> point = typedPoint(texts, c[0] != "-", form);
    EXPECT_EQ(point ? "taken" : point.error, c[3]) << c[1] << ' ' << c[2];
  }
}

TEST(TypedPoint, CountsNumbersUp) {
  for (const auto& [number, next] : {std::pair{"", ""},
                                     {"7", "8"},
                                     {"A09", "A10"},
                                     {"99", "100"},
                                     {"TBM", "TBM"},
                                     {"5-199", "5-200"},
                                     {"3B", "3B"},
                                     {"99999999999999999999", "100000000000000000000"}})
    EXPECT_EQ(nextTypedNumber(number), next);
}

TEST(TypedPoint, FillsTheRecordWithWhatWasTyped) {
  const auto taken = [](const TypedTexts& texts) {
    const text::Result<PointRecord> p = typedPoint(texts, true, AngleForm::DegreesMinutesSeconds);
    return p ? tests::row(p->pointNumber, p->description, p->InNorthLat, p->InEastLon, p->Elevation, p->geoidHeight,
                          p->ellipsoidHeight)
             : p.error;
  };
  TypedTexts texts = {.number = "12",
                      .name = "Iron, found",
                      .northing = "453015.5",
                      .easting = "-931530",
                      .elevation = 812.25,
                      .geoid = -27.125,
                      .ellipsoid = 785.125};
  EXPECT_EQ(taken(texts), "12|Iron, found|45.5043055555556|-93.2583333333333|812.25|-27.1250|785.1250");
  texts.geoid = texts.ellipsoid = 0;
  EXPECT_EQ(taken(texts), "12|Iron, found|45.5043055555556|-93.2583333333333|812.25||");
  texts.elevation = std::numeric_limits<double>::infinity();
  EXPECT_EQ(taken(texts), "A height is too large to be a number.");
}

}  // namespace
}  // namespace tovak::run
