#include <limits>

#include <gtest/gtest.h>

#include "run/default_numbering.h"
#include "run/identification.h"
#include "run/labels.h"
#include "run/projection_box.h"

namespace tovak::run {
namespace {

TEST(IdentificationLine, NamesTheTarget) {
  const std::tuple<std::int16_t, SideSettings, Adjustment, const char*> cases[] = {
      {4, {"", "4", "", false}, Adjustment::None, "$Tovak#4$ NAD83  (Feet)"},
      {2, {"", "2M", "", true}, Adjustment::Nad83_2011, "$Tovak#2M-2011$ NAD83(2011)  (Meters)"},
      {105, {"", "105", "", false}, Adjustment::Nad83_1996, "$Tovak#105$ NAD27  (Feet)"},
      {263, {"", "P = 5M", "Bypass", true}, Adjustment::Nad83_1986, "$Tovak#P = 5M$ NAD27 Bypass (Meters)"},
      {267, {"", "267", "", false}, Adjustment::Nad83_2007, "$Tovak#267-2007$ NAD83(2007)  (Feet)"}};
  for (const auto& [code, target, adjustment, line] : cases) {
    RunSettings settings;
    settings.TargetProjectionCode = code;
    settings.target = target;
    settings.adjustment = adjustment;
    EXPECT_EQ(identificationLine(settings), line);
  }
}

TEST(UnitLabels, NameUnitOrAngles) {
  EXPECT_TRUE(unitLabels(2, true).coordinateLabel == "(m)" && unitLabels(2, false).coordinateLabel == "(ft)");
  EXPECT_TRUE(unitLabels(2, false).shortLabel == "(f)" && unitLabels(103, true).shortLabel == "L-L");
}

TEST(ProjectionBox, AgreesWithTheUnitButtons) {
  const std::tuple<ProjectionBox, const char*, const char*> cases[] = {
      {{2, false}, "2m", "2M"},   {{2, true}, "2", "2"},          {{2, true}, "3", "3M"}, {{2, false}, "3", "3"},
      {{4, false}, "2.5M", "2M"}, {{4, true}, "99999", "32767M"}, {{4, true}, "", "-1M"}};
  for (const auto& [before, typed, expected] : cases) {
    const ProjectionBox after = typeProjection(before, typed, false);
    EXPECT_EQ(projectionText(after.code, after.metres), expected) << "typed " << typed;
  }
}

TEST(DefaultNumbering, CountsAndStopsBeforeTheEndOfItsRange) {
  constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
  const std::tuple<std::int32_t, std::int32_t, std::int32_t> cases[] = {
      {100, 10, 110}, {5, -10, -5}, {7, 0, 7}, {kMax - 1, 1, kMax - 1}, {kMax - 2, 1, kMax - 1}, {kMin, -1, kMin}};
  for (const auto& [next, increment, after] : cases) {
    RunSettings settings;
    settings.NextPointNumber = next;
    settings.PointNumberIncrement = increment;
    std::string number = "old";
    takeDefaultNumber(settings, number);
    EXPECT_EQ(number, std::to_string(next));
    EXPECT_EQ(settings.NextPointNumber, after);
  }
}

}  // namespace
}  // namespace tovak::run
