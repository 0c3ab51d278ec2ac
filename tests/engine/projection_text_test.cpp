#include "engine/projection_text.h"

#include <gtest/gtest.h>

namespace tovak::engine {
namespace {

TEST(ProjectionText, GivesCodeAndUnit) {
  using Row = std::pair<const char*, const char*>;
  const Row cases[] = {Row("2", "2"), Row("2.4", "2"), Row("102.6M", "103M"), Row("-263", "-263"), Row("  2  m", "2M"),
                       // Remarks behind a blank or a bracket, a name in front of "=".
                       Row("2M (metres)", "2M"), Row("2M(metres)", "2M"), Row("3(metres)", "3"), Row("2 North", "2"),
                       Row("Projection = 0    (Latitude and Longitude : NAD83)", "0"),
                       Row("Projection =267 M (Universal)", "267M")};
  for (const auto& [text, expected] : cases) {
    const auto read = readProjectionText(text);
    ASSERT_TRUE(read) << text;
    EXPECT_EQ(std::to_string(read->code) + (read->unit == run::LengthUnit::metres ? "M" : ""), expected) << text;
  }
}

TEST(ProjectionText, RefusesEverythingElse) {
  for (const char* text : {"", " ", "M", "2x", "2 meters", "2Mx", "2 M2", "2,", "2\t", "North 2",
                           "2 = ", "Projection = M", "nan", "99999"}) {
    EXPECT_FALSE(readProjectionText(text)) << '"' << text << '"';
  }
}

}  // namespace
}  // namespace tovak::engine
