// Counts allocations: a run over many points makes no more of them than a run over few.

#include <gtest/gtest.h>

#include "formats/format_tables.h"
#include "run/conversion_run.h"
#include "support/allocation_counter.h"
#include "support/scripted_person.h"
#include "support/temporary_folder.h"
#include "support/unchanging_engine.h"

namespace tovak::formats {
namespace {

struct Route {
  std::int16_t sourceFormat;
  std::int16_t sourceCode;
  std::int16_t targetFormat;
  std::int16_t targetCode;
  std::string_view line;  ///< one point of the source
};

constexpr std::string_view kDelimitedLine =
    "45 12 34.56789,-93.123456789,A description that outgrows any short string,,812.345,-27.123,0,a long rest\n";
constexpr std::string_view kEightyColumnLine =
    "0104A description of 30 characters2523 47.767907553.363BM 812.345 MONQRDT23CXXXX\n";
constexpr std::string_view kAlignmentLine =
    "0002TR 12   0+412.350 R 350.000    769561.004276777.865PISC             L12 12  \n";

std::size_t allocationsFor(int points, const Route& route) {
  std::string lines;
  for (int i = 0; i < points; ++i) lines += route.line;
  const tests::TemporaryFolder folder;
  run::RunSettings settings;
  settings.sourceFormat = route.sourceFormat;
  settings.targetFormat = route.targetFormat;
  settings.source.fileName = folder.write("in", lines);
  settings.target.fileName = folder.file("out");
  settings.SourceProjectionCode = route.sourceCode;
  settings.TargetProjectionCode = route.targetCode;
  settings.BatchMode = 2;
  tests::UnchangingEngine engine;
  tests::ScriptedPerson person;
  const std::size_t before = tests::allocationCount();
  const run::RunResult result = run::convert(settings, engine, formatTables(), person);
  EXPECT_EQ(result.counts.converted, static_cast<std::uint64_t>(points));
  return tests::allocationCount() - before;
}

TEST(SteadyState, AllocatesNothingPerPoint) {
  const Route routes[] = {
      {1, 0, 1, 4, kDelimitedLine},    {1, 4, 1, 0, kDelimitedLine}, {2, 4, 2, 4, kEightyColumnLine},
      {2, 4, 1, 0, kEightyColumnLine}, {2, 4, 2, 4, kAlignmentLine},
  };
  for (const Route& route : routes) {
    SCOPED_TRACE(route.line);
    allocationsFor(1, route);  // what is made once in the life of the program
    EXPECT_EQ(allocationsFor(5000, route), allocationsFor(10, route));
  }
}

}  // namespace
}  // namespace tovak::formats
