#include "text/date.h"

#include <gtest/gtest.h>

#include "support/environment.h"

namespace tovak::text {
namespace {

TEST(Date, IsTheDayWhereTheProgramRuns) {
  // Instants by `date --date=... +%s`; the zone is written as POSIX has it, five hours behind Greenwich.
  const std::tuple<const char*, std::time_t, const char*> cases[] = {{"UTC0", 0, "01/01/1970"},
                                                                     {"UTC0", 1772323199, "02/28/2026"},
                                                                     {"UTC0", 1798761599, "12/31/2026"},
                                                                     {"EST5", 1772323199 + 4 * 3600, "02/28/2026"},
                                                                     {"EST5", 1772323199 + 6 * 3600, "03/01/2026"}};
  for (const auto& [zone, instant, expected] : cases) {
    const tests::EnvironmentVariable given("TZ", zone);
    tzset();
    std::string text;
    appendDate(text, dayOf(instant), '/');
    EXPECT_EQ(text, expected);
  }
  tzset();
}

}  // namespace
}  // namespace tovak::text
