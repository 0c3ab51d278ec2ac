#include "formats/delimited/format_editor.h"

#include <algorithm>

#include "formats/delimited/built_in_formats.h"
#include "formats/delimited/format_preview.h"
#include "support/format_files.h"
#include "support/golden_rows.h"
#include "text/number.h"

namespace tovak::formats::delimited {
namespace {

using namespace tests;
using run::DelimitedFormat;
using Refusal = FormatEditor::Refusal;

std::string said(const Refusal& refusal) {
  return refusal ? row(refusal->text, refusal->title, refusal->icon == run::Icon::Information, refusal->focus) : "";
}

const std::string kProtected =
    "The Tovak Standard Format cannot be modified.  Try making a copy.|No Changes Made|1|FmtList";

DefinedFormats withFormat(const DelimitedFormat& format) {
  return {.table = {standardFormat(), format}, .chosenSource = 1, .chosenTarget = 1};
}

/// Carries out steps on a format's fields: @ and a cursor, + and a code, - to delete, > and < for the next and the
/// previous field. Gives the codes, the cursor, and the text from there.
std::string fieldsAfter(const std::string& codes, const std::string& steps, char delimiter = ',') {
  DefinedFormats formats = withFormat({.delimiter = delimiter, .fieldCodes = codes});
  FormatEditor editor(formats, EditorPurpose::InputFile);
  std::istringstream in(steps);
  in.imbue(std::locale::classic());
  for (std::string step; in >> step;) {
    const auto number = static_cast<std::int16_t>(text::leadingNumber(std::string_view(step).substr(1)));
    if (step[0] == '@') editor.placeCursor(static_cast<std::size_t>(number));
    if (step[0] == '>') editor.nextField();
    if (step[0] == '<') editor.previousField();
    const Refusal refusal = step[0] == '+'   ? editor.addField(number)
                            : step[0] == '-' ? editor.deleteField()
                                             : std::nullopt;
    EXPECT_EQ(said(refusal), "");
  }
  return row(editor.format().fieldCodes, editor.cursor(), editor.fieldList().substr(editor.cursor()));
}

TEST(FormatEditor, AddsAndDeletesFieldsAtTheCursor) {
  // "Name , " has 7 characters, "Number , " 9.
  for (std::size_t at = 0; at <= 16; ++at) {
    SCOPED_TRACE(at);
    const std::string cursor = "@" + row(at);
    EXPECT_EQ(fieldsAfter(" 2~ 3~", cursor + " +4"), at < 7    ? " 4~ 2~ 3~|12|Name , Number , "
                                                     : at < 16 ? " 2~ 4~ 3~|19|Number , "
                                                               : " 2~ 3~ 4~|28|");
    EXPECT_EQ(fieldsAfter(" 2~ 3~", cursor + " -"), at < 7 ? " 3~|0|Number , " : " 2~|7|");
    EXPECT_EQ(fieldsAfter(" 2~ 3~", cursor + " >"), at < 7 ? " 2~ 3~|7|Number , " : " 2~ 3~|16|");
    EXPECT_EQ(fieldsAfter(" 2~ 3~", cursor + " <"), at <= 7 ? " 2~ 3~|0|Name , Number , " : " 2~ 3~|7|Number , ");
  }
  for (const auto& c : goldenRows("edited_fields.txt"))
    EXPECT_EQ(fieldsAfter(c[0], c[1], c[2][0]), c[3]) << c[0] << c[1];
}

TEST(FormatEditor, RefusesEveryChangeOfTheStandardFormat) {
  DefinedFormats formats = {.table = {standardFormat()}};
  FormatEditor editor(formats, EditorPurpose::Utility);
  const Refusal refusals[] = {editor.addField(2),        editor.deleteField(),  editor.setDelimiter(";"),
                              editor.rename("mine"),     editor.removeFormat(), editor.setLatLongFormat(2),
                              editor.setHeader("a"),     editor.rename(""),     editor.generateHeader(),
                              editor.includeHeader(true)};
  for (const Refusal& refusal : refusals) EXPECT_EQ(said(refusal), kProtected);
  for (const Refusal& none : {editor.setDelimiter(","), editor.rename("Tovak Standard"), editor.setLatLongFormat(0)}) {
    EXPECT_EQ(said(none), "");
  }
  EXPECT_EQ(formats.table, DelimitedFormatTable{standardFormat()});
}

TEST(FormatEditor, KeepsTheListOfFormats) {
  DefinedFormats formats = withFormat({.name = "B", .delimiter = ';', .headerLine = "h;", .latLongFormat = 3});
  FormatEditor editor(formats, EditorPurpose::OutputFile);
  EXPECT_EQ(editor.index(), 1U);
  EXPECT_EQ(said(editor.copyFormat()), "");
  EXPECT_EQ(formats.table[2].name, "Copy of B");
  formats.table[2].name = "B";
  EXPECT_EQ(formats.table[2], formats.table[1]);
  EXPECT_EQ(said(editor.addFormat()), "");
  EXPECT_EQ(formats.table[3], (DelimitedFormat{.name = "New Format", .fieldCodes = ""}));
  EXPECT_EQ(editor.listNames()[3], "New Format (change name before saving)");
  const Case names[] = {{"", "New Format"}, {"  ", "New Format"}, {"a~b\r\nc", "a~b  c"}, {"B", "B"}};
  expectEach(names, [&](const std::string& typed) { return said(editor.rename(typed)) + editor.format().name; });
  EXPECT_EQ(row(editor.index(), editor.listNames()[3]), "3|B") << "two entries may have one name";

  run::RunSettings settings;
  editor.choose(settings);
  EXPECT_EQ(settings.targetDelimited, formats.table[3]);
  EXPECT_EQ(settings.sourceDelimited, DelimitedFormat());
  editor.show(1);
  EXPECT_EQ(said(editor.removeFormat()), "");
  EXPECT_EQ(row(editor.index(), editor.format().name, formats.chosenSource, formats.chosenTarget), "1|B|0|2")
      << "the entry that was chosen is still found, and a removed one is not";
  editor.show(2);
  EXPECT_EQ(said(editor.removeFormat()), "");
  EXPECT_EQ(row(editor.index(), editor.listNames().size()), "1|2");
  while (formats.table.size() < 26) EXPECT_EQ(said(editor.copyFormat()), "");
  for (const Refusal& refusal : {editor.addFormat(), editor.copyFormat()}) {
    EXPECT_EQ(said(refusal), "There is no room for more than 26 formats.|No Changes Made|1|FmtList");
  }
  EXPECT_EQ(formats.table.size(), 26U);
}

TEST(FormatEditor, TakesDelimitersAndMakesHeaders) {
  const Case delimiters[] = {{"\\t", "\\T"}, {"\\T", "\\T"}, {"\\n", "\\N"}, {"\\N", "\\N"}, {"\\x", "\\"},
                             {";,", ";"},    {"", ","},      {" ", " "},     {"\"", "\""},   {"~", "~"},
                             {"\t", "\\T"},  {"\n", "\\N"},  {"§", "\xA7"},  {"é", "\xE9"},  {"€", ","}};
  expectEach(delimiters, [](const std::string& typed) {
    DefinedFormats formats = withFormat({});
    FormatEditor editor(formats, EditorPurpose::InputFile);
    EXPECT_EQ(said(editor.setDelimiter(typed)).empty(), typed != "€");
    return editor.delimiterText();
  });
  const Case headers[] = {
      {" 0~ 1~ 3~", "Y Coordinate|X Coordinate|Point Number|"}, {" 25~ 98~ 2~", "Geopak Comment|"}, {"", ""}};
  for (const char delimiter : {',', '\t', '~'}) {
    expectEach(headers, [delimiter](const std::string& codes) {
      DefinedFormats formats = withFormat({.delimiter = delimiter, .fieldCodes = codes, .headerLine = "old"});
      FormatEditor editor(formats, EditorPurpose::InputFile);
      EXPECT_EQ(said(editor.generateHeader()), "");
      std::string header = formats.table[1].headerLine;
      std::replace(header.begin(), header.end(), delimiter, '|');
      return header;
    });
  }
}

TEST(FormatEditor, SavesWhatIsReadAgain) {
  const TemporaryFolder folder;
  DefinedFormats formats = {.table = {standardFormat()}};
  FormatEditor editor(formats, EditorPurpose::Utility);
  for (const char* delimiter : {"\\n", "\\t", "~", "\"", " ", "\r", "§"}) {
    for (const Refusal& refusal :
         {editor.addFormat(), editor.rename("\x01x\f\r\ny ~"), editor.setDelimiter(delimiter), editor.addField(0),
          editor.addField(25), editor.generateHeader(), editor.includeHeader(true), editor.setLatLongFormat(3)}) {
      EXPECT_EQ(said(refusal), "");
    }
  }
  EXPECT_EQ(said(editor.addFormat()), "");
  EXPECT_EQ(said(editor.setHeader("a\nb\r,")), "");
  const DelimitedFormatTable table = formats.table;
  std::string error;
  EXPECT_FALSE(editor.save(folder.file("none/Tovak.cdf"), error));
  EXPECT_EQ(error, folder.file("none/Tovak.cdf") + ": No such file or directory");
  EXPECT_TRUE(editor.unsaved() && formats.table == table);
  ASSERT_TRUE(editor.save(folder.file("Tovak.cdf"), error));
  EXPECT_FALSE(editor.unsaved());
  EXPECT_EQ(row(loadDefinitions(folder.file("Tovak.cdf")).error), "");
  EXPECT_EQ(loadDefinitions(folder.file("Tovak.cdf")).value, table);
  EXPECT_NE(contentsOf(folder.file("Tovak.cdf")).find("\x01New Format\r\n 44 \r\n\r\na b ,\r\n"), std::string::npos);
}

/// The rows of a preview: label, then the cells; "!" at a coordinate of 0, "?" before a line in one piece.
std::string shown(const FormatPreview& preview) {
  std::string out;
  for (const PreviewRow& line : preview.rows) {
    out += line.label + (line.undivided ? "?" : ":");
    for (const PreviewCell& cell : line.cells) out += "[" + cell.text + (cell.zeroCoordinate ? "!]" : "]");
    out += '\n';
  }
  return out + preview.note;
}

TEST(FormatPreview, DividesTheFirstLinesOfTheSource) {
  const TemporaryFolder folder;
  const std::string name = folder.write("in.csv", "$Tovak#0$ NAD83\n45 1 2,-93,A;c\nNorth,East\n1,0.0,B,rest,x\n");
  const auto preview = [](const std::string& file, const char* codes, bool latLong = true) {
    return previewSource({.fieldCodes = codes}, readSourceStart(file), latLong);
  };
  EXPECT_EQ(
      shown(preview(name, " 0~ 1~ 2~ 25~")),
      "1?[$Tovak#0$ NAD83]\n2:[45 1 2][-93][A][c]\n3:[North!][East!][][]\n4:[1][0.0!][B][rest]\n"
      "1 of the first 4 lines are read as points; marked coordinates read as 0, and their lines are passed over.");
  EXPECT_EQ(preview(name, " 0~ 1~ 7~ 2~").columns,
            (std::vector<std::string>{"Y Coordinate", "X Coordinate", "Anything Else"}));
  EXPECT_EQ(preview(name, " 0~ 2~").note,
            "Without a field for each of the two coordinates no line is read as a point.");
  // Of a large file only the beginning is read, and of a long line only the beginning kept.
  const std::string large = folder.write("large", std::string(300000, '1') + "\n" + std::string(100, '\n') +
                                                      std::string(text::LineReader::kMaxLineLength + 1, '2'));
  const SourceStart start = readSourceStart(large);
  EXPECT_EQ(row(start.lines.size(), start.lines[0].size(), start.problem), "20|4096|");
  const Case without[] = {{"", "No source file is chosen yet."},
                          {folder.write("empty", ""), "The source file is empty."},
                          {folder.file("none"), folder.file("none") + ": No such file or directory"},
                          {"/dev/zero", "/dev/zero is no ordinary file and is not looked into."}};
  expectEach(without, [&](const std::string& file) { return shown(preview(file, " 0~ 1~")); });
}

TEST(FormatPreview, WritesASamplePoint) {
  run::RunSettings settings = settingsFor(4);
  DelimitedFormat format = {.fieldCodes = " 3~ 0~ 1~ 25~", .headerLine = "No,N,E,C", .includeHeader = true};
  EXPECT_EQ(shown(previewTarget(format, settings, SampleSystems::OfTarget)),
            "Header:[No,N,E,]\nNorthing, easting:[101,2503013.737,2193223.445;a comment]\n"
            "The last character of the header line is not written: end it with the delimiter.");
  settings.TargetProjectionCode = 103;
  format = {.delimiter = '\n', .fieldCodes = " 0~ 3~", .latLongFormat = 2};
  EXPECT_EQ(shown(previewTarget(format, settings, SampleSystems::OfTarget)),
            "Latitude, longitude:[48 56 49.01137]\n:[101]\n");
  EXPECT_EQ(previewTarget({.fieldCodes = " 0~"}, settings, SampleSystems::Both).rows.size(), 2U);
}

}  // namespace
}  // namespace tovak::formats::delimited
