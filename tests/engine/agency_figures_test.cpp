// The agency exports on the engine itself. The expected files under agency/ were made from the samples by cs2cs with
// the definitions of both catalogues, to the last printed digit.
#include "engine_probe.h"
#include "support/format_files.h"

namespace tovak::engine {
namespace {

std::string exported(TovakX& engine, std::int16_t source, const char* targetText, const std::string& lines) {
  const tests::TemporaryFolder folder;
  run::RunSettings settings;
  settings.sourceFormat = source;
  settings.targetFormat = static_cast<std::int16_t>(source + 1);
  settings.source.fileName = folder.write("in", lines);
  settings.target.fileName = folder.file("out");
  settings.target.projectionText = targetText;
  tests::ScriptedPerson person;
  run::convert(settings, engine, formats::formatTables(), person.audience());
  return tests::contentsOf(settings.target.fileName);
}

TEST(AgencyFigures, AreThoseOfTheDefinitions) {
  const auto engine = probe::freshEngine();
  const auto expectSample = [&](std::int16_t source, const char* targetText, const char* name, const char* expected) {
    EXPECT_EQ(exported(*engine, source, targetText, tests::sample(name)),
              tests::contentsOf(TOVAK_AGENCY_FOLDER "/" + std::string(expected)));
  };
  expectSample(run::source::GeodeticsSpecial, "4", "geodetics_special.txt", "geodetics_special_feet.txt");
  expectSample(run::source::GeodeticsSpecial, "4M", "geodetics_special.txt", "geodetics_special_metres.txt");
  expectSample(run::source::LmoBatch, "4M", "lmo_batch.csv", "lmo_batch.csv");
}

TEST(AgencyFigures, ComeFromNad27ByTheGrid) {
  const auto engine = probe::freshEngine();
  EXPECT_EQ(exported(*engine, run::source::LmoBatch, "4",
                     "93.145557,45.123460,ANOKA,LL27\n481022.418,5018226.907,ANOKA,MUTM27\n"),
            "93.145557,45.123460,ANOKA,LL27,45,12,34.60000,93,14,55.57000,496679.027,162685.811,Anoka,2818225.959,"
            "1134473.773,S,1576266.100,16424712.080\n"
            "481022.418,5018226.907,ANOKA,MUTM27,45,19,9.16787,93,14,32.47729,498379.044,202662.169,Anoka,"
            "2819567.423,1174464.323,S,1578097.549,16464666.911\n");
}

}  // namespace
}  // namespace tovak::engine
