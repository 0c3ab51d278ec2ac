#include "formats/survey/sdms_reader.h"
#include "formats/survey/sdms_writer.h"
#include "run/projection_code.h"
#include "support/format_files.h"

namespace tovak::formats {
namespace {

using namespace tests;
using run::PointRecord;

std::string points(std::string_view bytes, Show show, std::int16_t code = 4) {
  return readFile(makeSdmsReader, bytes, settingsFor(code), show).points;
}

const Show position = [](const PointRecord& p) {
  return row(p.InNorthLat, p.InEastLon, p.Elevation, p.elevationDecimals);
};

TEST(SdmsReader, PutsEachTagInItsPlace) {
  const Show fields = [](const PointRecord& p) {
    std::string text = row(p.sectionLine, p.pointNumber, p.description, p.station, p.offset, p.raField, p.comment,
                           p.phField, p.owField, p.odField, p.geoidHeight, p.ellipsoidHeight, p.featureCode, p.figure,
                           p.latitude, p.longitude, position(p), p.sourceLine);
    for (std::size_t i = 0; i < p.furtherFieldCount; ++i) text += "|" + p.furtherFields[i];
    return text;
  };
  EXPECT_EQ(
      points("HD:NAD27\n\nAC:TP\nPN:17\nPD:HILL\nST:1+00\nOF:2\nRA:ra\nCM:FOUND\nCM:IRON "
             "PIPE\nXC:500.5\nYC:150.25\nZC:812.3\n"
             "HE:1.5x\nHG:-27\nPH:DSK\nOW:VSK\nOD:TO\nLT:451234.5\nLG:930000\nFE:MON\nFG:L1\nZQ:7\nOFFICE\nX\n"
             "AC:CP\nPH:\nYC:1\nXC:2\n",
             fields),
      "AC:TP|17|HILL|1+00|2|ra|FOUND IRON PIPE|DSK|VSK|TO|-27|1.5x|MON|L1|451234.5|930000|150.25|500.5|812.3|2|3|ZQ:7|"
      "OFFICE|X AC:CP|||||||   |    |    |||||||1|2|0|0|26");
}

TEST(SdmsReader, ChoosesAmongCoordinates) {
  const Case grid[] = {
      {"YC:5\nXC:0\nXX:500000.12", "5|500000.12|0|0"}, {"YC:5\nXX:500000.12\nXC:499999.50", "5|499999.5|0|0"},
      {"YY:6\nYC:5\nYC:0\nXC:1", "5|1|0|0"},           {"YY:6\nXC:1\nZC:812", "6|1|812|3"},
      {"YC:1\nXC:2\nZC:0\nZZ:9.5", "1|2|9.5|2"},       {"YC:1\nXC:2\nZZ:9.5\nZC:0", "1|2|9.5|2"},
      {"YC:1\nXC:2\nZC:8.25\nZZ:9.5", "1|2|8.25|1"},   {"yc:1 m\r\nXc:2e3\r\nzc:3\r", "1|2000|3|3"}};
  expectEach(grid, [](const std::string& lines) { return points("AC:CP\n" + lines, position); });
  EXPECT_EQ(points("AC:CP\nYC:1\nXC:2\nLT:45 12 34.5\nLG: 93 06 00", position, 103), "451234.5|930600|0|0");
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
  const Case feet[] = {{"40+50.414 -11.482917", "ST:1+234.569\nOF:-3.500000\n"},
                       {"1234.57  39.37 ", "ST:0+376.298\nOF:12.000000\n"},
                       {"0+00 0", "ST:0+000.000\nOF:0.000000\n"},
                       {"-1+23.45", "ST:-0+037.628\n"},
                       {"PI12+34 1e3", "ST:PI12+34\nOF:1e3\n"},
                       {"1+2+3 1+2", "ST:1+2+3\nOF:1+2\n"}};
  expectEach(feet, toMetres(true));
  const Case metres[] = {{"1+234.567 -3.5", "ST:40+50.41\nOF:-11.482917\n"},
                         {"0+000.500", "ST:0+01.64\n"},
                         {"1234+567.000", "ST:40504+08.57\n"},
                         {"30.480", "ST:1+00.00\n"}};
  expectEach(metres, toMetres(false));
}

TEST(Sdms, CopiesWhatIsNoPointToItsOwnKindAlone) {
  const char* const fieldBook =
      "$Tovak#4$ NAD27  (Meters)\nHD:NAD27\ncm:projection=Old\nCM:Units=METERS\nCM:Control survey\n\nDT:0514\n"
      "AC:eq\nSN:1\n\n  CM:Checked\nAC:PR\nPJ:River\nAC:CP\nPN:1\nYC:10\nXC:20\nZQ:7\nZR:8\nAC:EQ\nSN:2\n"
      "AC:NT\nCM:Rain\nZQ:8\nAC:SS\nCM:Half\nST:1+00\nAC:TP\nPN:2\nPD:HILL\nCM:note\nYC:11\nXC:21\nZC:5\n"
      "OF:2.5\nST:1+00\nRA:ra\nTM:08\nFG:L1\nFE:MON\nHE:785.1\nHG:-27.25 m\nOD:TO 1\nOW:VSK\nPH:DSK\n"
      "AC:CP\nPN:3\nYC:66\nXC:22\nAC:PR\nPJ:Last";
  Conversion<ScriptedEngine> run(run::source::Sdms, run::target::Sdms);
  run.settings.adjustment = run::Adjustment::Nad83_1996;
  run.engine.refusals[66] = 7;
  EXPECT_EQ(run.of(fieldBook),
            "HD:NAD83(1996)\nCM:Projection=4\nCM:Units=FEET\nCM:Control survey\nDT:0514\n"
            "AC:eq\nSN:1\nCM:Checked\nAC:PR\nPJ:River\nAC:CP\nPN:1\nYC:11.000\nXC:22.000\nZC:3.000\nZQ:7\nZR:8\n"
            "AC:EQ\nSN:2\nAC:NT\nCM:Rain\nZQ:8\nAC:TP\nPN:2\nPH:DSK\nOW:VSK\nOD:TO 1\nYC:12.000\nXC:23.000\n"
            "ZC:8.000\nHG:-27.250\nHE:785.100\nFE:MON\nFG:L1\nTM:08\nRA:ra\nST:1+00\nOF:2.5\n"
            "AC:PR\nPJ:Last\n");
  EXPECT_EQ(row(run.result.counts.converted, row(run.result.counts.zeroCoordinate)), "2|2|22");
  run.settings.targetFormat = run::target::CommaDelimited;
  EXPECT_EQ(run.of(fieldBook), "11.000,22.000,,1,3.000,,,\n12,23,HILL,2,8,-27,785,\n");
}

TEST(Sdms, NamesTheTargetInItsHeader) {
  Conversion<ScriptedEngine> run(run::source::Sdms, run::target::Sdms, run::kUserDefinedProject);
  run.settings.SourceProjectionCode = 4;
  run.settings.target.metres = true;
  run.engine.project = "Bridge 9~263M";
  EXPECT_EQ(run.of("AC:CP\nYC:1\nXC:2\n"),
            "HD:NAD27 Bridge 9\nCM:Projection=263M\nCM:Units=METERS\nAC:CP\nPN:1\nYC:2.000\nXC:4.000\nZC:3.000\n");
  Conversion<ScriptedEngine> angles(run::source::Sdms, run::target::Sdms, 0);
  angles.settings.SourceProjectionCode = 4;
  EXPECT_EQ(angles.of("AC:CP\nPN:A\nYC:44.9999999999\nXC:-102.0875\n"),
            "HD:NAD83\nCM:Projection=4\nAC:CP\nPN:A\nLT:460000.00000\nLG:1000515.00000\nZC:3.000\n");
}

}  // namespace
}  // namespace tovak::formats
