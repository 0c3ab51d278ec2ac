// Counts allocations: a run over many points makes no more of them than a run over few.

#include <gtest/gtest.h>

#include "formats/format_tables.h"
#include "run/conversion_run.h"
#include "run/format_index.h"
#include "support/allocation_counter.h"
#include "support/scripted_engine.h"
#include "support/scripted_person.h"
#include "support/temporary_folder.h"

namespace tovak::formats {
namespace {

class SilentEngine final : public tests::ScriptedEngine {
 public:
  std::int16_t TovakVert(double& InNorthLat, double& InEastLon, double&, const std::string&, double& OutNorthLat,
                         double& OutEastLon, double&, const std::string&, std::string&, std::string_view) override {
    OutNorthLat = InNorthLat;
    OutEastLon = InEastLon;
    return 0;
  }
};

std::size_t allocationsFor(int points, std::int16_t sourceCode, std::int16_t targetCode) {
  std::string lines;
  for (int i = 0; i < points; ++i) {
    lines +=
        "45 12 34.56789,-93.123456789,A description that outgrows any short string,,812.345,-27.123,0,a long rest\n";
  }
  const tests::TemporaryFolder folder;
  run::RunSettings settings;
  settings.sourceFormat = run::source::CommaDelimited;
  settings.targetFormat = run::target::CommaDelimited;
  settings.source.fileName = folder.write("in", lines);
  settings.target.fileName = folder.file("out");
  settings.SourceProjectionCode = sourceCode;
  settings.TargetProjectionCode = targetCode;
  settings.BatchMode = 2;
  SilentEngine engine;
  tests::ScriptedPerson person;
  const std::size_t before = tests::allocationCount();
  const run::RunResult result = run::convert(settings, engine, formatTables(), person);
  EXPECT_EQ(result.counts.converted, static_cast<std::uint64_t>(points));
  return tests::allocationCount() - before;
}

TEST(SteadyState, AllocatesNothingPerPoint) {
  allocationsFor(1, 0, 4);  // what is made once in the life of the program
  EXPECT_EQ(allocationsFor(5000, 0, 4), allocationsFor(10, 0, 4));
  EXPECT_EQ(allocationsFor(5000, 4, 0), allocationsFor(10, 4, 0));
}

}  // namespace
}  // namespace tovak::formats
