// Files for programs next door, read back by readers from elsewhere: ogr2ogr (gdal-bin) and xmllint (libxml2-utils).
#include <array>
#include <cstdio>
#include <cstdlib>

#include "formats/exchange/escaped_text.h"
#include "formats/target_figures.h"
#include "support/format_files.h"
#include "text/strings.h"

namespace tovak::formats::exchange {
namespace {

using namespace tests;
using run::PointRecord;

TEST(EscapedText, HoldsWhatItsNotationAllows) {
  // The text; as XML, JSON and DXF have it; in which of these something else stands for a character.
  using namespace std::string_literals;
  const std::array<std::string, 5> cases[] = {
      {"  A, 'B'  ", "A, 'B'", "A, 'B'", "A, 'B'", ""},
      {"<&>\"\\", "&lt;&amp;&gt;&quot;\\", "<&>\\\"\\\\", "<&>\"\\", ""},
      {"\u00E4\u20AC", "\u00E4\u20AC", "\u00E4\u20AC", "\xE4?", "d"},
      {"\U0001F6A7", "\U0001F6A7", "\U0001F6A7", "?", "d"},
      {"a\tb\r\n", "a&#9;b&#13;&#10;", "a\\u0009b\\u000D\\u000A", "a b  ", "d"},
      {"\1\0\x7F"s, "\uFFFD\uFFFD\x7F", "\\u0001\\u0000\x7F", "   ", "xd"},
      {"\uFFFE\uFFFF", "\uFFFD\uFFFD", "\uFFFE\uFFFF", "??", "xd"},
      {"M\xFCHLE", "M\uFFFDHLE", "M\uFFFDHLE", "M?HLE", "xjd"},
      // An overlong letter, half a pair of surrogates, beyond Unicode, cut off.
      {"\xC1\x81", "\uFFFD\uFFFD", "\uFFFD\uFFFD", "??", "xjd"},
      {"\xE0\x80\x81", "\uFFFD\uFFFD\uFFFD", "\uFFFD\uFFFD\uFFFD", "???", "xjd"},
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD", "\uFFFD\uFFFD\uFFFD", "???", "xjd"},
      {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD", "\uFFFD\uFFFD\uFFFD\uFFFD", "????", "xjd"},
      {"A\xE2\x82", "A\uFFFD\uFFFD", "A\uFFFD\uFFFD", "A??", "xjd"},
      {"5% %%d ^J \\P", "5% %%d ^J \\P", "5% %%d ^J \\\\P", "5% % d ^ J \\P", "d"}};
  for (const auto& [text, xml, json, dxf, replaced] : cases) {
    std::array<std::string, 3> out;
    std::string other;
    if (!appendXml(out[0], text)) other += 'x';
    if (!appendJson(out[1], text)) other += 'j';
    if (!appendDxf(out[2], text)) other += 'd';
    EXPECT_EQ(out, (std::array<std::string, 3>{xml, json, dxf})) << text;
    EXPECT_EQ(other, replaced) << text;
  }
}

constexpr const char* kNames[] = {
    "Alder, Bridge; North", "the \"old\" 'mill'", "<b>A & B</b> &amp;", "H\u00F6he \u00C4\u00DF", "",
    "{[\\n]}: 5% d ^J",     "\\U+0041 C:\\P",     "  two  blanks"};

/// The points of a file, with names of all kinds; every third is without an elevation.
std::vector<PointRecord> points(double north, double east, double step) {
  std::vector<PointRecord> points;
  for (int i = 0; i < 1000; ++i) {
    PointRecord point = pointAt(north + i * step, east - i * step / 2, i % 3 == 0 ? 0 : 100 + i / 8.0);
    point.description = i % 9 == 8 ? std::string(200, 'x') + std::to_string(i) : kNames[i % 9];
    if (i % 10 != 9) point.pointNumber = std::to_string(i) + kNames[i % 7];
    points.push_back(point);
  }
  return points;
}

std::string nameIn(std::string_view text) {
  return std::string(text::trimBlanks(text));
}

/// What a command prints.
std::string printed(const std::string& command) {
  std::string out;
  std::FILE* const pipe = ::popen((command + " 2>/dev/null").c_str(), "r");
  for (std::array<char, 4096> block{}; pipe != nullptr;) {
    const std::size_t size = std::fread(block.data(), 1, block.size(), pipe);
    if (size == 0) break;
    out.append(block.data(), size);
  }
  if (pipe != nullptr) ::pclose(pipe);
  return out;
}

/// The rows of a CSV file without its heading.
std::vector<std::vector<std::string>> rowsOf(std::string_view csv) {
  std::vector<std::vector<std::string>> rows(1, std::vector<std::string>(1));
  bool quoted = false;
  for (const char c : csv) {
    if (c == '"') quoted = !quoted;
    // Inside quotes a quote comes twice, and switches twice.
    if (c == '"' && quoted && !rows.back().back().empty()) rows.back().back() += c;
    if (c == '"') continue;
    if (c == ',' && !quoted) {
      rows.back().emplace_back();
    } else if (c == '\n' && !quoted) {
      rows.emplace_back(1);
    } else {
      rows.back().back() += c;
    }
  }
  rows.pop_back();
  if (!rows.empty()) rows.erase(rows.begin());
  return rows;
}

class ReadBack : public testing::Test {
 protected:
  static bool installed(const char* program) {
    return std::system((std::string("command -v ") + program + " >/dev/null").c_str()) == 0;
  }
  void write(std::int16_t format, const run::RunSettings& settings, const char* name) {
    file = folder.file(name);
    text::LineWriter lines;
    run::DoubtFlags doubts;
    ASSERT_TRUE(lines.open(file));
    const auto writer = formatTables().targets[static_cast<std::size_t>(format)].makeWriter(
        {.lines = lines, .settings = settings, .doubts = doubts, .targetSystem = "A & B", .today = {2026, 11, 21}});
    ASSERT_TRUE(writer->begin());
    for (const PointRecord& point : all) ASSERT_TRUE(writer->write(point));
    ASSERT_TRUE(writer->end() && lines.commit());
    EXPECT_FALSE(doubts.any());
  }
  /// The rows X, Y, Z and the fields that ogr2ogr reads.
  std::vector<std::vector<std::string>> ogrRows(const std::string& options) {
    return rowsOf(printed("ogr2ogr -f CSV /vsistdout/ '" + file + "' -lco GEOMETRY=AS_XYZ " + options));
  }
  static void expectAt(const std::vector<std::string>& row, const PointRecord& point, double tolerance) {
    ASSERT_GE(row.size(), 4u);
    EXPECT_NEAR(text::leadingNumber(row[0]), point.OutEastLon, tolerance);
    EXPECT_NEAR(text::leadingNumber(row[1]), point.OutNorthLat, tolerance);
    EXPECT_NEAR(text::leadingNumber(row[2]), point.Elevation, 0.00051);
  }

  const TemporaryFolder folder;
  std::string file;
  std::vector<PointRecord> all = points(45.123456789, -93.987654321, 0.000123456789);
};

TEST_F(ReadBack, EarthFormatsByOgr) {
  if (!installed("ogr2ogr")) GTEST_SKIP() << "ogr2ogr (gdal-bin) is missing";
  const std::tuple<std::int16_t, const char*, const char*> formats[] = {
      {run::target::Kml, "p.kml", "-select Name,Description"},
      {run::target::GeoJson, "p.json", "-select number,description"}};
  for (const auto& [format, name, options] : formats) {
    write(format, settingsFor(0, true), name);
    const auto rows = ogrRows(options);
    ASSERT_EQ(rows.size(), all.size()) << name;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      expectAt(rows[i], all[i], 0.51e-8);
      EXPECT_EQ(rows[i][3] + '|' + rows[i][4], nameIn(all[i].pointNumber) + '|' + nameIn(all[i].description)) << name;
    }
  }
}

TEST_F(ReadBack, DrawingsByOgr) {
  if (!installed("ogr2ogr")) GTEST_SKIP() << "ogr2ogr (gdal-bin) is missing";
  all = points(2503013.737, 2193223.445, 12.345);
  write(run::target::Dxf, settingsFor(4), "p.dxf");
  const auto rows = ogrRows("-select Layer,Text");
  std::size_t next = 0;
  for (const PointRecord& point : all) {
    for (const auto& [layer, text] :
         {std::pair{"POINTS", std::string()}, std::pair{"NUMBERS", nameIn(point.pointNumber)},
          std::pair{"DESCRIPTIONS", nameIn(point.description)}}) {
      if (text.empty() && layer != std::string("POINTS")) continue;
      ASSERT_LT(next, rows.size());
      expectAt(rows[next], point, 0.00051);
      EXPECT_EQ(rows[next][3] + '|' + rows[next][4], layer + ('|' + text));
      ++next;
    }
  }
  EXPECT_EQ(next, rows.size());
}

TEST_F(ReadBack, XmlByXmllint) {
  if (!installed("xmllint")) GTEST_SKIP() << "xmllint (libxml2-utils) is missing";
  write(run::target::Kml, settingsFor(0, true), "p.kml");
  EXPECT_EQ(printed("xmllint --noout '" + file + "' && echo well-formed"), "well-formed\n");
  all = points(2503013.737, 2193223.445, 12.345);
  write(run::target::LandXml, settingsFor(4), "p.xml");
  std::string query = "concat(count(//*[local-name()=\"CgPoint\"]), /*/*[2]/@name";
  std::string expected = "1000A & B";
  for (std::size_t i = 0; i < all.size(); ++i) {
    const std::string at = ",/*/*[3]/*[" + std::to_string(i + 1) + "]";
    query += at + at + "/@name" + at + "/@desc";
    run::PointFigures figures;
    knownLengthFigures(settingsFor(4), all[i], figures);
    expected += figures.northing + ' ' + figures.easting + (figures.elevation.empty() ? "" : ' ' + figures.elevation);
    expected += nameIn(all[i].pointNumber) + nameIn(all[i].description);
  }
  EXPECT_EQ(printed("xmllint --xpath '" + query + ")' '" + file + "'"), expected + '\n');
}

TEST(ExchangeWriters, RaiseADoubtAboutReplacedCharacters) {
  for (const std::int16_t target : {run::target::Kml, run::target::GeoJson, run::target::LandXml, run::target::Dxf}) {
    Conversion run(run::source::CommaDelimited, target, target < run::target::LandXml ? 0 : 4);
    run.settings.latLongForm = text::AngleForm::DecimalDegrees;
    run.of("45,-93,good,1\n45,-93,\xFF,2\n45,-93,,\xFF\n");
    EXPECT_EQ(row(static_cast<const run::Tally&>(tallyOf(run.result.counts.doubts, run::Doubt::ReplacedCharacters))),
              "2|2")
        << target;
  }
}

TEST(GeoJson, TellsConvergenceAndScaleFactorOfTheSource) {
  Conversion run(run::source::CommaDelimited, run::target::GeoJson, 0, [](const ScriptedEngine::Point& point) {
    point.info = point.source == "0M" ? "-0-35-12.34 0.999912345 Zone" : "0-00-00.00 1 Latitude";
    return ScriptedEngine::leave(point);
  });
  run.settings.SourceProjectionCode = 4;
  run.settings.source.projectionText = "4";
  run.engine.systems[4] = "Zone \"4\"~4";
  const std::string file = run.of("45,-93,,1,100\n");
  EXPECT_EQ(file.substr(file.find(R"("northing")")),
            R"("northing":45.000,"easting":-93.000,"system":"Zone \"4\"","unit":"US survey foot",)"
            R"("convergence":"-0-35-12.34","scaleFactor":0.999912345}})"
            "\n]}\n");
}

TEST(ExchangeFiles, HaveTheEndingOfTheirFormat) {
  const std::tuple<std::int16_t, const char*, const char*> names[] = {{run::target::Kml, "a", "a.kml"},
                                                                      {run::target::Kml, "a.KML", "a.KML"},
                                                                      {run::target::GeoJson, "a.json", "a.json"},
                                                                      {run::target::GeoJson, "a.txt", "a.txt.geojson"},
                                                                      {run::target::Dxf, "/dev/null", "/dev/null"}};
  for (const auto& [target, name, written] : names) {
    const TemporaryFolder folder;
    Conversion run(run::source::CommaDelimited, target, target == run::target::Dxf ? 4 : 0);
    run.settings.source.fileName = folder.write("in", "\n");
    const bool device = name[0] == '/';
    run.settings.target.fileName = device ? name : folder.file(name);
    ScriptedPerson person;
    run::convert(run.settings, run.engine, formatTables(), person.audience());
    EXPECT_EQ(run.settings.target.fileName, device ? written : folder.file(written));
  }
}

}  // namespace
}  // namespace tovak::formats::exchange
