#include "engine/projection_text.h"

#include <gtest/gtest.h>

namespace tovak::engine {
namespace {

constexpr auto kFeet = run::LengthUnit::usSurveyFeet;
constexpr auto kMetres = run::LengthUnit::metres;

TEST(ProjectionText, GivesCodeAndUnit) {
  const struct {
    const char* text;
    std::int16_t code;
    run::LengthUnit unit;
  } cases[] = {
      {"2", 2, kFeet},
      {"2M", 2, kMetres},
      {"  2  m", 2, kMetres},
      {"0M", 0, kMetres},
      {"2M (metres)", 2, kMetres},
      {"2M(metres)", 2, kMetres},
      {"3 (feet)", 3, kFeet},
      {"3(metres)", 3, kFeet},
      {"2 North", 2, kFeet},
      {"2   ", 2, kFeet},
      {"Projection = 0    (Latitude and Longitude : NAD83)", 0, kFeet},
      {"Projection =267 M (Universal Transverse Mercator)", 267, kMetres},
      {"=104", 104, kFeet},
      {"2.4", 2, kFeet},
      {"102.6M", 103, kMetres},
      {"1e2M", 100, kMetres},
      {"-263", -263, kFeet},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    const auto read = readProjectionText(c.text);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->code, c.code);
    EXPECT_EQ(read->unit, c.unit);
  }
}

TEST(ProjectionText, RefusesEverythingElse) {
  for (const char* text : {"", " ", "M", "=", "2x", "2 meters", "2MM", "2Mx", "2 M2", "2,", "2\t", "North 2",
                           "2 = ", "Projection = M", "nan", "inf", "99999", "-40000M", "1e400"}) {
    EXPECT_FALSE(readProjectionText(text)) << '"' << text << '"';
  }
}

}  // namespace
}  // namespace tovak::engine
