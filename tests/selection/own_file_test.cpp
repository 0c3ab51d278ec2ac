#include "selection/own_file.h"

#include <initializer_list>

#include <gtest/gtest.h>

#include "run/labels.h"
#include "support/temporary_folder.h"

namespace tovak::selection {
namespace {

using run::Adjustment;

TEST(OwnFile, PresetsTheSource) {
  const struct {
    const char* line;
    const char* box;
    Adjustment adjustment;
  } cases[] = {
      {"$Tovak#4$ NAD83  (Feet)", "4", Adjustment::None},
      {"$Tovak#4M-1986$ NAD83(1986)  (Meters)", "4M", Adjustment::Nad83_1986},
      {"$Tovak#263-2011$ NAD83(2011) My Project (Feet)", "263", Adjustment::Nad83_2011},
      // A file on NAD27 says nothing about the adjustments of NAD83.
      {"$Tovak#107M$ NAD27  (Meters)", "107M", Adjustment::Nad83_1996},
      // The twin on the datum declared.
      {"$Tovak#0$ NAD27  (Feet)", "103", Adjustment::Nad83_1996},
      {"$Tovak#104M$ NAD83  (Meters)", "1M", Adjustment::None},
      {"$Tovak#4$ NAD27  (Feet)", "107", Adjustment::Nad83_1996},
      {"$Tovak#266$ NAD27  (Feet)", "264", Adjustment::Nad83_1996},
      {"$Tovak#265$ NAD83(2007)  (Feet)", "267", Adjustment::Nad83_2007},
      {"$Tovak#50$ NAD27  (Feet)", "153", Adjustment::Nad83_1996},
      {"$Tovak#205$ NAD83  (Feet)", "102", Adjustment::None},
      // Codes without a twin.
      {"$Tovak#206$ NAD83  (Feet)", "206", Adjustment::None},
      {"$Tovak#268$ NAD27  (Feet)", "268", Adjustment::Nad83_1996},
      {"$Tovak#103$ WGS84  (Feet)", "103", Adjustment::Nad83_1996},
      // No identification line.
      {"Tovak#4$ NAD83  (Feet)", "2M", Adjustment::Nad83_1996},
      {"$Tovak#$ NAD83  (Feet)", "2M", Adjustment::Nad83_1996},
      {"$Tovak#4", "2M", Adjustment::Nad83_1996},
      {"$Tovak#99999$ NAD83  (Feet)", "2M", Adjustment::Nad83_1996},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    Selections selections;
    typeProjection(selections, Side::Source, "2M");
    chooseAdjustment(selections, Adjustment::Nad83_1996);
    EXPECT_EQ(presetFromIdentification(selections, c.line), c.box != std::string("2M"));
    EXPECT_EQ(selections.run.source.projectionText, c.box);
    EXPECT_EQ(selections.run.adjustment, c.adjustment);
  }
}

TEST(OwnFile, KnowsEveryLineThatTheProgramWrites) {
  for (const std::int16_t code : std::initializer_list<std::int16_t>{0, 1, 4, 50, 103, 107, 263, 264, 268}) {
    for (const bool metres : {false, true}) {
      run::RunSettings written;
      written.TargetProjectionCode = code;
      written.target.metres = metres;
      written.target.projectionText = run::projectionText(code, metres);
      const tests::TemporaryFolder folder;
      const std::string file = folder.write("own.csv", run::identificationLine(written) + "\r\n1,2\r\n");
      Selections selections;
      EXPECT_TRUE(presetFromFile(selections, file));
      EXPECT_EQ(selections.run.source.projectionText, written.target.projectionText);
    }
  }
  Selections selections;
  EXPECT_FALSE(presetFromFile(selections, "/nowhere/at all"));
}

}  // namespace
}  // namespace tovak::selection
