// The definitions file, the editor, and a preview compared with a run. The first byte says how much of the input is the
// file; the rest is a source. The second drives the editor.
#include <algorithm>

#include "formats/delimited/definitions_file.h"
#include "formats/delimited/format_editor.h"
#include "formats/delimited/format_preview.h"
#include "harness.h"
#include "run/format_index.h"

using namespace tovak;
using namespace tovak::formats::delimited;

namespace {

/// The editor may answer anything; what it shows must be consistent.
void edit(DefinedFormats& formats, std::string_view commands) {
  FormatEditor editor(formats, EditorPurpose::OutputFile);
  while (!commands.empty()) {
    const unsigned command = fuzz::takeByte(commands);
    const auto number = static_cast<std::int16_t>(fuzz::takeByte(commands));
    const std::string_view text = commands.substr(0, command / 16);
    switch (command % 16) {
      case 0:
        static_cast<void>(editor.addFormat());
        break;
      case 1:
        static_cast<void>(editor.copyFormat());
        break;
      case 2:
        static_cast<void>(editor.removeFormat());
        break;
      case 3:
        static_cast<void>(editor.rename(text));
        break;
      case 4:
        editor.show(static_cast<std::size_t>(number) % formats.table.size());
        break;
      case 5:
        editor.placeCursor(static_cast<std::size_t>(number) % (editor.fieldList().size() + 1));
        break;
      case 6:
        editor.nextField();
        break;
      case 7:
        editor.previousField();
        break;
      case 8:
        static_cast<void>(editor.addField(static_cast<std::int16_t>(number % 26)));
        break;
      case 9:
        static_cast<void>(editor.deleteField());
        break;
      case 10:
        static_cast<void>(editor.setDelimiter(text));
        break;
      case 11:
        static_cast<void>(editor.setLatLongFormat(static_cast<std::uint8_t>(number % 4)));
        break;
      case 12:
        static_cast<void>(editor.setHeader(text));
        break;
      case 13:
        static_cast<void>(editor.generateHeader());
        break;
      default:
        static_cast<void>(editor.includeHeader(number % 2 == 1));
        break;
    }
    const FormatEditor::Place place = editor.fieldAtCursor();
    fuzz::require(place.start + place.length <= editor.fieldList().size(), "the field lies in the list");
    fuzz::require(editor.cursor() <= editor.fieldList().size(), "the cursor lies in the list");
    fuzz::require(editor.listNames().size() == formats.table.size(), "a name for each format");
  }
}

void requireSameAgain(const DelimitedFormatTable& table) {
  const std::string name = fuzz::folder().file("again.cdf");
  std::string error;
  fuzz::require(saveDefinitions(name, table, table.size(), error), "saved", error);
  const text::Result<DelimitedFormatTable> again = loadDefinitions(name);
  fuzz::require(again.value.has_value(), "what is saved is read again", again.error);
  fuzz::require(*again == table, "and is the same");
}

void requirePreviewEqualsRun(const run::DelimitedFormat& format) {
  run::RunSettings settings = fuzz::settingsFor(run::source::CommaDelimited, run::target::CommaDelimited, 4);
  settings.sourceDelimited = format;
  settings.BatchMode = 0;
  const SourceStart start = readSourceStart(settings.source.fileName);
  const bool cut =
      std::any_of(start.lines.begin(), start.lines.end(), [](const std::string& l) { return l.size() >= 4096; });
  if (cut || start.lines.size() >= 20 || !start.problem.empty()) return;
  const FormatPreview preview = previewSource(format, start, false);
  const fuzz::Account account = fuzz::runOnce(settings, fuzz::engine());
  fuzz::requireSums(account);
  const auto points =
      std::count_if(preview.rows.begin(), preview.rows.end(), [](const PreviewRow& r) { return r.point; });
  fuzz::require(account.result.counts.converted == static_cast<std::uint64_t>(points), "the preview equals the run");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::size_t share = fuzz::takeByte(bytes);
  const std::string_view file = bytes.substr(0, bytes.size() * share / 255);
  bytes.remove_prefix(file.size());
  const std::string name = fuzz::folder().write("Tovak.cdf", file);
  fuzz::folder().write("in", bytes);
  text::Result<DelimitedFormatTable> table = loadDefinitions(name);
  fuzz::require(table.value.has_value() == table.error.empty(), "formats or a reason");
  if (!table) return 0;
  requireSameAgain(*table);
  for (const run::DelimitedFormat& format : *table) {
    requirePreviewEqualsRun(format);
    previewTarget(format, {}, SampleSystems::Both);
  }
  DefinedFormats formats = {.table = *table, .saved = *table};
  edit(formats, bytes.substr(0, 400));
  requireSameAgain(formats.table);
  return 0;
}
