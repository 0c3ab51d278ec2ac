// Alignment points on their way from the formats that hold them to the instrument's file.
#include <gtest/gtest.h>

#include "formats/format_tables.h"
#include "run/conversion_run.h"
#include "run/format_index.h"
#include "support/scripted_person.h"
#include "support/temporary_folder.h"
#include "support/unchanging_engine.h"

namespace tovak::formats {
namespace {

TEST(AlignmentRoute, CarriesStationAndRaFieldToTheGeodimeterFile) {
  const struct {
    std::int16_t format;
    const char* sample;
    std::string_view part;  ///< of the target
  } cases[] = {
      {run::source::Vesko80Column, "vesko80_alignment_metric.txt",
       "80=0+000.000\n37=276622.818\n38=769178.898\n80=0+412.350\n37=276777.865\n38=769561.004\n64=R 350.000\n"},
      {run::source::Sdms, "field_book.sdms", "80=1+234.567\n37=384833.340\n38=914678.821\n64=BACK\n"},
  };
  for (const auto& c : cases) {
    const tests::TemporaryFolder folder;
    run::RunSettings settings;
    settings.sourceFormat = c.format;
    settings.targetFormat = run::target::GeodimeterAlignment;
    settings.SourceProjectionCode = settings.TargetProjectionCode = 4;
    settings.source.fileName = std::string(TOVAK_SAMPLES_FOLDER "/") + c.sample;
    settings.source.metres = settings.target.metres = true;
    settings.target.fileName = folder.file("out");
    settings.BatchMode = 2;
    tests::UnchangingEngine engine;
    tests::ScriptedPerson person;
    EXPECT_EQ(run::convert(settings, engine, formatTables(), person).outcome, run::RunOutcome::Finished);
    const std::string written = tests::contentsOf(folder.file("out"));
    EXPECT_NE(written.find(c.part), std::string::npos) << written;
  }
}

}  // namespace
}  // namespace tovak::formats
