#include "text/angle.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace tovak::text {
namespace {

constexpr AngleForm S = AngleForm::DegreesMinutesSeconds;
constexpr AngleForm D = AngleForm::DecimalDegrees;
constexpr AngleForm M = AngleForm::DegreesDecimalMinutes;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNone = -999;

double degrees(double d, double m, double s) {
  return d + m / 60 + s / 3600;
}

TEST(InterpretAngle, ReadsEachFormAndRefusesMinutesAndSecondsFrom60) {
  using Row = std::tuple<double, AngleForm, double>;
  const Row cases[] = {
      Row(-93.25, D, -93.25), Row(std::nan(""), D, kNone), Row(kInfinity, D, kNone),
      Row(-9315.25, M, -degrees(93, 15.25, 0)), Row(4559.9999999, M, degrees(45, 59.9999999, 0)), Row(4560, M, kNone),
      Row(451234.56789, S, degrees(45, 12, 34.56789)), Row(-931234.5, S, -degrees(93, 12, 34.5)),
      Row(45.123456789, S, degrees(45, 12, 34.56789)),
      // Each of these is a hair less than its decimal text in binary; none may lose its minute or second.
      Row(45.12, S, degrees(45, 12, 0)), Row(-93.07, S, -degrees(93, 7, 0)), Row(44.5959, S, degrees(44, 59, 59)),
      Row(45.595999999, S, degrees(45, 59, 59.99999)), Row(0.0001, S, degrees(0, 0, 1)), Row(456000, S, kNone),
      Row(451260, S, kNone), Row(45.60, S, kNone), Row(45.1260, S, kNone)};
  for (const auto& [value, form, expected] : cases) {
    const AngleReading angle = interpretAngle(value, form);
    EXPECT_NEAR(angle.fault == AngleFault::None ? angle.degrees : kNone, expected, 1e-12)
        << std::to_string(value) << static_cast<char>(form);
  }
}

TEST(ReadAngle, TakesAnglesAsPeopleWriteThem) {
  // The text, the angle whatever the form; or with a number alone that of packed ones.
  const std::pair<const char*, double> cases[] = {{"45-12-34.5", degrees(45, 12, 34.5)},
                                                  {"45:12:34.5", degrees(45, 12, 34.5)},
                                                  {"45\xC2\xB0"
                                                   "12'34.5\"",
                                                   degrees(45, 12, 34.5)},
                                                  {"45\xB0 12' 34.5\" N", degrees(45, 12, 34.5)},
                                                  {"45\xC2\xB0 12\xE2\x80\xB2 34.5\xE2\x80\xB3", degrees(45, 12, 34.5)},
                                                  {" 45 12 34.5 ", degrees(45, 12, 34.5)},
                                                  {"45 3 15.5", degrees(45, 3, 15.5)},
                                                  {"45d12m34.5s", degrees(45, 12, 34.5)},
                                                  {"45D 12M 34.5S N", degrees(45, 12, 34.5)},
                                                  {"n45 12 34.5", degrees(45, 12, 34.5)},
                                                  {"45 12.5", degrees(45, 12.5, 0)},
                                                  {"45-12", degrees(45, 12, 0)},
                                                  {"-45-12-30", -degrees(45, 12, 30)},
                                                  {"45.5\xC2\xB0", 45.5},
                                                  {"451234.5 N", degrees(45, 12, 34.5)},
                                                  {"4512 34.5", degrees(45, 12, 34.5)}};
  std::string scratch;
  for (const auto& [text, expected] : cases) {
    const bool numberAlone = std::string_view(text).starts_with("4512");
    for (const AngleForm form : {S, D, M}) {
      if (numberAlone && form != S) continue;
      const AngleReading angle = readAngle(text, form, AngleAxis::Latitude, scratch);
      EXPECT_EQ(angle.fault, AngleFault::None) << text;
      EXPECT_FALSE(angle.textBehind) << text;
      EXPECT_NEAR(angle.degrees, expected, 1e-12) << text << static_cast<char>(form);
    }
  }
}

TEST(ReadAngle, RefusesOrDoubtsTheRest) {
  const std::tuple<const char*, AngleFault, bool> cases[] = {{"45 12 34.5S", AngleFault::OtherHemisphere, false},
                                                             {"W45 12 34.5", AngleFault::OtherHemisphere, false},
                                                             {"45-60-00", AngleFault::NotBelow60, false},
                                                             {"45 12 60", AngleFault::NotBelow60, false},
                                                             {"1e999", AngleFault::TooLarge, false},
                                                             {"45-12-34-5", AngleFault::None, true},
                                                             {"45.5O4", AngleFault::None, true},
                                                             {"45,5", AngleFault::None, true},
                                                             {"", AngleFault::None, false},
                                                             {"Latitude", AngleFault::None, false}};
  std::string scratch;
  for (const auto& [text, fault, behind] : cases) {
    const AngleReading angle = readAngle(text, D, AngleAxis::Latitude, scratch);
    EXPECT_EQ(angle.fault, fault) << text;
    EXPECT_EQ(angle.textBehind, behind) << text;
  }
  EXPECT_EQ(readAngle(std::string(400, '7') + "d", D, AngleAxis::Latitude, scratch).fault, AngleFault::TooLarge);
  EXPECT_EQ(readAngle("93-12-30 W", D, AngleAxis::Longitude, scratch).fault, AngleFault::None);
  EXPECT_EQ(readAngle("93-12-30 E", D, AngleAxis::Longitude, scratch).fault, AngleFault::OtherHemisphere);
}

TEST(SplitAngle, RoundsOnceBeforeItSplits) {
  using Row = std::tuple<double, const char*>;
  const Row cases[] = {Row(-93.5, "-93 30 00.00000"), Row(degrees(45, 12, 34.56789), "45 12 34.56789"),
                       Row(degrees(45, 59, 59.999994), "45 59 59.99999"),
                       Row(-degrees(9, 59, 59.999999), "-10 00 00.00000"), Row(5.25, "05 15 00.00000"),

                       // No minus in front of nothing.
                       Row(-0.5, "-00 30 00.00000"), Row(-1e-12, "00 00 00.00000"), Row(123.75, "123 45 00.00000"),
                       Row(-kInfinity, "-1000000000 00 00.00000")};
  for (const auto& [angle, expected] : cases) {
    const SplitAngle split = splitAngle(angle);
    std::string text;
    appendDegrees(text, split);
    appendMinutes(text += ' ', split);
    appendSeconds(text += ' ', split);
    EXPECT_EQ(text, expected);
  }
}

TEST(DashedAngle, RoundsOnceBeforeItSplits) {
  using Row = std::pair<double, const char*>;
  const Row cases[] = {Row(-degrees(0, 35, 12.34), "-0-35-12.34"),       Row(degrees(1, 2, 3.4), "1-02-03.40"),
                       Row(degrees(0, 59, 59.996), "1-00-00.00"),        Row(-degrees(9, 9, 59.994), "-9-09-59.99"),
                       Row(-degrees(0, 0, 0.004), "0-00-00.00"),         Row(-degrees(0, 0, 0.006), "-0-00-00.01"),
                       Row(-degrees(123, 0, 59.995001), "-123-01-00.00")};
  for (const auto& [angle, expected] : cases) {
    std::string text;
    appendDashedAngle(text, angle);
    EXPECT_EQ(text, expected);
  }
}

}  // namespace
}  // namespace tovak::text
