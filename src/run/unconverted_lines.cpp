#include "run/unconverted_lines.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "text/file_identity.h"
#include "text/line_reader.h"

namespace tovak::run {
namespace {

constexpr std::size_t kLongestText = 500;

struct Kind {
  Tally RecordCounts::*tally;
  std::string_view reason;  ///< of lines that are no points; empty for refused points, which have reasons of their own
};
constexpr std::array<Kind, 8> kKinds = {{
    {&RecordCounts::refusedByEngine, ""},
    {&RecordCounts::refusedAngle, ""},
    {&RecordCounts::refusedCounty, ""},
    {&RecordCounts::withoutDelimiter, "No delimiter"},
    {&RecordCounts::zeroCoordinate, "A zero coordinate"},
    {&RecordCounts::comment, "A comment"},
    {&RecordCounts::noPoint, "Not a point"},
    {&RecordCounts::otherZone, "A point of another zone"},
}};

void takeTexts(std::vector<UnconvertedLine>& lines, const std::string& file) {
  if (!text::whyNotLookedInto(file).empty()) return;
  text::LineReader source;
  source.open(file);
  std::string_view text;
  for (UnconvertedLine& line : lines) {
    if (!line.file.empty() && line.file != file) continue;
    while (source.lineNumber() < line.line && source.next(text)) continue;
    if (source.lineNumber() == line.line) line.text = text.substr(0, kLongestText);
  }
}

}  // namespace

UnconvertedLines unconvertedLines(const RecordCounts& counts, const RunSettings& settings, std::size_t most) {
  UnconvertedLines list;
  list.count = recordsSkipped(counts) + recordsPassedOver(counts);
  for (const Kind& kind : kKinds) {
    const bool refused = kind.reason.empty();
    for (const TalliedLine& line : (counts.*kind.tally).lines) {
      list.lines.push_back({.line = line.line,
                            .file = line.file,
                            .text = {},
                            .reason = refused ? line.reason : std::string(kind.reason),
                            .refused = refused});
    }
  }
  const std::vector<std::string>& sheets = settings.options.geodeticCsv.sheets;
  const auto place = [&sheets](const UnconvertedLine& line) {
    return std::pair(std::ranges::find(sheets, line.file) - sheets.begin(), line.line);
  };
  std::ranges::stable_sort(list.lines, {}, place);
  if (list.lines.size() > most) list.lines.resize(most);
  if (tallyOf(counts.doubts, Doubt::SourceChanged).count != 0 || settings.source.fileName.empty()) return list;
  std::vector<std::string> files = {settings.source.fileName};
  for (const UnconvertedLine& line : list.lines) {
    if (!line.file.empty() && line.file != files.back()) files.push_back(line.file);
  }
  for (const std::string& file : files) takeTexts(list.lines, file);
  return list;
}

}  // namespace tovak::run
