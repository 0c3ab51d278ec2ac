#include "selection/own_file.h"

#include <initializer_list>

#include <gtest/gtest.h>

#include "run/identification.h"
#include "support/golden_rows.h"

namespace tovak::selection {
namespace {

using run::Adjustment;

TEST(OwnFile, PresetsTheSource) {
  tests::expectRows("own_files.txt", [](const std::string& line) {
    Selections selections;
    typeProjection(selections, Side::Source, "2M");
    chooseAdjustment(selections, Adjustment::Nad83_1996);
    const bool preset = presetFromIdentification(selections, line);
    const std::string& box = selections.run.source.projectionText;
    EXPECT_EQ(preset, box != "2M") << line;
    return box + " adjustment " + std::to_string(static_cast<int>(selections.run.adjustment));
  });
}

TEST(OwnFile, KnowsEveryLineThatTheProgramWrites) {
  for (const std::int16_t code : std::initializer_list<std::int16_t>{0, 1, 4, 50, 103, 107, 263, 264, 268}) {
    for (const bool metres : {false, true}) {
      run::RunSettings written;
      written.TargetProjectionCode = code;
      written.target.metres = metres;
      written.target.projectionText = run::projectionText(code, metres);
      Selections selections;
      EXPECT_TRUE(presetFromIdentification(selections, run::identificationLine(written)));
      EXPECT_EQ(selections.run.source.projectionText, written.target.projectionText);
    }
  }
}

}  // namespace
}  // namespace tovak::selection
