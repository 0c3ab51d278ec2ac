#include "formats/survey/sdms_reader.h"
#include "formats/survey/sdms_writer.h"
#include "run/projection_code.h"
#include "support/format_files.h"
#include "support/golden_rows.h"

namespace tovak::formats::survey {
namespace {

using namespace tests;
using run::PointRecord;

std::string points(std::string_view bytes, Show show, std::int16_t code = 4) {
  return readFile(makeSdmsReader, bytes, settingsFor(code), show).points;
}

const Show position = [](const PointRecord& p) {
  return row(p.InNorthLat, p.InEastLon, p.Elevation, p.elevationAccuracy);
};

TEST(SdmsReader, PutsEachTagInItsPlace) {
  EXPECT_EQ(
      points("HD:NAD27\n\nAC:TP\nPN:17\nPD:HILL\nST:1+00\nOF:2\nRA:ra\nCM:FOUND\nCM:IRON "
             "PIPE\nXC:500.5\nYC:150.25\nZC:812.3\n"
             "HE:1.5x\nHG:-27\nPH:DSK\nOW:VSK\nOD:TO\nLT:451234.5\nLG:930000\nFE:MON\nFG:L1\nZQ:7\nOFFICE\nX\n"
             "AC:CP\nPH:\nYC:1\nXC:2\n",
             filledFields),
      "E=500.5 N=150.25 OD=TO OW=VSK PH=DSK RA=ra Z=812.3 comment=FOUND IRON PIPE decimals=2 description=HILL "
      "ellipsoid=1.5x feature=MON figure=L1 further=ZQ:7;OFFICE;X; geoid=-27 latitude=451234.5 line=3 longitude=930000 "
      "number=17 offset=2 section=AC:TP station=1+00 E=2 N=1 line=26 section=AC:CP");
}

TEST(SdmsReader, ChoosesAmongCoordinates) {
  expectRows("sdms_coordinates.txt", [](const std::string& lines) { return points("AC:CP\n" + lines, position); });
  EXPECT_EQ(points("AC:CP\nYC:1\nXC:2\nLT:45 12 34.5\nLG: 93 06 00", position, 103), "45.2095833333333|-93.1|0|0");
}

TEST(SdmsReader, PassesOverSectionsWithoutBothCoordinates) {
  const Show show = [](const PointRecord& p) { return row(p.pointNumber, p.sourceLine); };
  const ReadFile file = readFile(makeSdmsReader,
                                 "$ note\nAC:\nAC:CP\nPN:1\nYC:5\nAC:CP\nPN:2\n  YC:5\n\n   XC:6  "
                                 "\nAC:CP\nXC:7\nac:eq\nYC:1\nXC:2\nAC:PR \nAC:CP\n"
                                 "PN:3\nYC:8\nXC:9\nAC:",
                                 settingsFor(4), show);
  EXPECT_EQ(file.points, "2|6 3|17");
  EXPECT_EQ(row(row(file.counts.zeroCoordinate), row(file.counts.comment)), "4|2|1|1");
  // Of the source's kind there must be a point at least.
  for (const char* const bytes :
       {"AC:CP\nLT:1\nLG:2\n", "AC:CP\nYC:1\nAC:CP\nXC:2\n", "AC:EQ\nYC:1\nXC:2\n", "YC:1\nXC:2\n", ""}) {
    EXPECT_EQ(readFile(makeSdmsReader, bytes, settingsFor(4), show).message,
              (run::Message{"This SDMS file does not contain valid coordinates.  Please correct this.",
                            "Invalid SDMS file", run::Icon::Exclamation}))
        << bytes;
  }
}

TEST(SdmsReader, SurvivesCutAndDamagedFiles) {
  const std::string point = "AC:CP\nPN:1\nYC:1\nXC:2\n";
  expectToSurviveDamage(makeSdmsReader, "HD:x\nAC:EQ\nSN:1\n" + point + "ZC:8.5\nZQ:7\nOD:T\n" + point + "ZZ:8\n",
                        settingsFor(4));
  // A section that outgrows memory stops the run; one with an overlong line leaves its fault to the run.
  std::string longSection = point + point;
  for (int i = 0; i < 50000; ++i) longSection += "x\n";
  const ReadFile tooLong = readFile(makeSdmsReader, longSection, settingsFor(4), number);
  EXPECT_EQ(tooLong.points, "1 stopped");
  EXPECT_EQ(tooLong.message.text, tooLong.name + ": the section in line 5 is longer than 1 MiB");
  EXPECT_EQ(points(point + point + std::string(text::LineReader::kMaxLineLength + 1, 'x'), number), "1");
}

/// What the writer puts into a file for `point`, its header aside.
std::string written(const PointRecord& point, const run::RunSettings& settings) {
  const std::string file = tests::written(makeSdmsWriter, point, settings);
  return file.substr(file.find("AC:"));
}

TEST(SdmsWriter, LeavesOutWhatIsEmpty) {
  PointRecord point = pointAt(150000.4565, 500000.5);
  point.geoidHeight = "0.000";
  point.odField = "XXXX";
  EXPECT_EQ(written(point, settingsFor(4, false, 2)), "AC:CP\nYC:150000.5\nXC:500000.5\n");
}

TEST(SdmsWriter, ConvertsStationsAndOffsetsBetweenUnits) {
  const auto toMetres = [](bool metres) {
    return [metres](const std::string& text) {
      run::RunSettings settings = settingsFor(4, metres);
      settings.source.metres = !metres;
      PointRecord point = pointAt(1, 2);
      point.station = text.substr(0, text.find(' '));
      if (text.find(' ') != std::string::npos) point.offset = text.substr(text.find(' ') + 1);
      return written(point, settings).substr(24);
    };
  };
  expectRows("sdms_stations_in_metres.txt", toMetres(true));
  expectRows("sdms_stations_in_feet.txt", toMetres(false));
}

TEST(Sdms, CopiesWhatIsNoPointToItsOwnKindAlone) {
  const std::string fieldBook = contentsOf(TOVAK_GOLDEN_FOLDER
                                           "/"
                                           "field_book.sdms");
  Conversion run(run::source::Sdms, run::target::Sdms, 4, ScriptedEngine::add);
  run.settings.adjustment = run::Adjustment::Nad83_1996;
  run.engine.refusals[66] = 7;
  EXPECT_EQ(run.of(fieldBook), contentsOf(TOVAK_GOLDEN_FOLDER "/"
                                                              "field_book_copied.sdms"));
  EXPECT_EQ(row(run.result.counts.converted, row(run.result.counts.zeroCoordinate)), "2|2|22");
  run.settings.targetFormat = run::target::CommaDelimited;
  EXPECT_EQ(run.of(fieldBook), "11.000,22.000,,1,3.000,,,\n12,23,HILL,2,8,-27,785,\n");
}

TEST(Sdms, NamesTheTargetInItsHeader) {
  Conversion run(run::source::Sdms, run::target::Sdms, run::kUserDefinedProject, ScriptedEngine::add);
  run.settings.SourceProjectionCode = 4;
  run.settings.target.metres = true;
  run.engine.project = "Bridge 9~263M";
  EXPECT_EQ(run.of("AC:CP\nYC:1\nXC:2\n"),
            "HD:NAD27 Bridge 9\nCM:Projection=263M\nCM:Units=METERS\nAC:CP\nPN:1\nYC:2.000\nXC:4.000\nZC:3.000\n");
  Conversion angles(run::source::Sdms, run::target::Sdms, 0, ScriptedEngine::add);
  angles.settings.SourceProjectionCode = 4;
  EXPECT_EQ(angles.of("AC:CP\nPN:A\nYC:44.9999999999\nXC:-102.0875\n"),
            "HD:NAD83\nCM:Projection=4\nAC:CP\nPN:A\nLT:460000.00000\nLG:1000515.00000\nZC:3.000\n");
}

}  // namespace
}  // namespace tovak::formats::survey
