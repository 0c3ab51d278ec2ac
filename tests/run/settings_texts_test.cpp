#include <limits>

#include <gtest/gtest.h>

#include "run/default_numbering.h"
#include "run/labels.h"
#include "run/projection_box.h"

namespace tovak::run {
namespace {

TEST(IdentificationLine, NamesTheTarget) {
  const struct {
    std::int16_t code;
    const char* text;
    Adjustment adjustment;
    const char* displayName;
    bool metres;
    const char* line;
  } cases[] = {
      {4, "4", Adjustment::None, "", false, "$Tovak#4$ NAD83  (Feet)"},
      {2, "2M", Adjustment::Nad83_2011, "", true, "$Tovak#2M-2011$ NAD83(2011)  (Meters)"},
      {105, "105", Adjustment::Nad83_1996, "", false, "$Tovak#105$ NAD27  (Feet)"},
      {263, "Projection = 5M", Adjustment::Nad83_1986, "Bypass", true, "$Tovak#Projection = 5M$ NAD27 Bypass (Meters)"},
      {267, "267", Adjustment::Nad83_2007, "", false, "$Tovak#267-2007$ NAD83(2007)  (Feet)"},
  };
  for (const auto& c : cases) {
    RunSettings settings;
    settings.TargetProjectionCode = c.code;
    settings.target = {.fileName = {}, .projectionText = c.text, .displayName = c.displayName, .metres = c.metres};
    settings.adjustment = c.adjustment;
    EXPECT_EQ(identificationLine(settings), c.line);
  }
}

TEST(Labels, OfUnitsAndHeights) {
  EXPECT_EQ(unitLabels(2, true).shortLabel, "(m)");
  EXPECT_EQ(unitLabels(2, false).shortLabel, "(f)");
  EXPECT_EQ(unitLabels(2, false).coordinateLabel, "(ft)");
  EXPECT_EQ(unitLabels(103, false).shortLabel, "L-L");
  EXPECT_EQ(unitLabels(0, true).coordinateLabel, "(m)");
  EXPECT_EQ(TargetUnitStepText(true), "300");
  EXPECT_EQ(TargetUnitStepText(false), "1000");
}

TEST(ProjectionBox, AgreesWithTheUnitButtons) {
  const struct {
    ProjectionBox before;
    const char* typed;
    const char* after;
  } cases[] = {
      {{2, false}, "2M", "2M"}, {{2, false}, "2m", "2M"},   {{2, true}, "2", "2"},          {{2, true}, "3", "3M"},
      {{2, false}, "3", "3"},   {{2, true}, "26M", "26M"},  {{0, true}, "0", "0"},          {{4, true}, "0", "0M"},
      {{4, false}, "2.6", "3"}, {{4, false}, "2.5M", "2M"}, {{4, true}, "99999", "32767M"}, {{4, true}, "", "0M"},
  };
  for (const auto& c : cases) {
    const ProjectionBox after = typeProjection(c.before, c.typed);
    EXPECT_EQ(projectionText(after.code, after.metres), c.after) << "typed " << c.typed;
  }
}

TEST(DefaultNumbering, CountsAndStopsBeforeTheEndOfItsRange) {
  using Limits = std::numeric_limits<std::int32_t>;
  const struct {
    std::int32_t next;
    std::int32_t increment;
    const char* number;
    std::int32_t after;
  } cases[] = {
      {1, 1, "1", 2},
      {100, 10, "100", 110},
      {5, -10, "5", -5},
      {7, 0, "7", 7},
      {Limits::max() - 1, 1, "2147483646", Limits::max() - 1},
      {Limits::max() - 2, 1, "2147483645", Limits::max() - 1},
      {Limits::max(), 5, "2147483647", Limits::max()},
      {Limits::min(), -1, "-2147483648", Limits::min()},
  };
  for (const auto& c : cases) {
    RunSettings settings;
    settings.NextPointNumber = c.next;
    settings.PointNumberIncrement = c.increment;
    std::string number = "old";
    takeDefaultNumber(settings, number);
    EXPECT_EQ(number, c.number);
    EXPECT_EQ(settings.NextPointNumber, c.after);
  }
}

}  // namespace
}  // namespace tovak::run
