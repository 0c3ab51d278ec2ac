#include "formats/database/map_sheets.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <system_error>
#include <utility>

#include "run/run_messages.h"
#include "text/line_reader.h"
#include "text/native_path.h"
#include "text/number.h"
#include "text/strings.h"
#include "text/system_error.h"

namespace tovak::formats::database {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kEnding = ".csv";
constexpr const char* kErrorTitle = "CSV Input Error";

/// Whether a byte continues a UTF-8 character.
bool isContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

bool isOneCharacter(std::string_view text) {
  return !text.empty() && std::all_of(text.begin() + 1, text.end(), isContinuation);
}

/// The common parts of the names of a county's sheets. Without the wildcard the whole name is in `head`.
struct NamePattern {
  std::string_view head;
  bool wildcard = false;
  std::string_view tail = {};
};

/// `ending` is the position of ".csv" in the whole path, `name` the path's last part.
NamePattern patternOf(std::string_view path, std::string_view name, std::size_t ending) {
  const std::size_t nameBegin = path.size() - name.size();
  if (ending <= nameBegin) return {.head = name};
  std::size_t wildcard = ending - nameBegin - 1;
  while (wildcard > 0 && isContinuation(name[wildcard])) --wildcard;
  return {.head = name.substr(0, wildcard), .wildcard = true, .tail = name.substr(ending - nameBegin)};
}

bool matches(const NamePattern& pattern, std::string_view name) {
  if (!pattern.wildcard) return text::equalsIgnoringCase(name, pattern.head);
  const std::size_t fixed = pattern.head.size() + pattern.tail.size();
  return name.size() > fixed && text::equalsIgnoringCase(name.substr(0, pattern.head.size()), pattern.head) &&
         text::endsWithIgnoringCase(name, pattern.tail) &&
         isOneCharacter(name.substr(pattern.head.size(), name.size() - fixed));
}

bool comesBefore(const std::string& a, const std::string& b) {
  const auto code = [](char letter) { return static_cast<unsigned char>(text::upperCase(letter)); };
  const auto before = [code](char x, char y) { return code(x) < code(y); };
  if (text::equalsIgnoringCase(a, b)) return a < b;
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), before);
}

}  // namespace

text::Result<MapSheetList> findMapSheets(const std::string& path) {
  using Sheets = text::Result<MapSheetList>;
  const std::size_t ending = text::findIgnoringCase(path, kEnding);
  if (ending == std::string::npos) return Sheets::failure("The source file is not a CSV file.");
  const std::string name = text::pathOf(path).filename().string();
  const NamePattern pattern = patternOf(path, name, ending);
  const fs::path folder = text::pathOf(path).parent_path();
  std::error_code error;
  MapSheetList sheets;
  fs::directory_iterator entry(folder.empty() ? "." : folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const std::string found = entry->path().filename().string();
    std::error_code unknown;
    if (!matches(pattern, found) || !entry->is_regular_file(unknown)) continue;
    if (sheets.size() == kMostMapSheets)
      return Sheets::failure("There are more than seven map sheets for this county.");
    sheets.push_back((folder / entry->path().filename()).string());
  }
  if (error) return Sheets::failure(text::systemErrorText(folder.empty() ? "." : folder.string(), error));
  std::sort(sheets.begin(), sheets.end(), comesBefore);
  return sheets;
}

run::Message sheetMessage(std::string error) {
  return {.text = std::move(error), .title = kErrorTitle, .icon = run::Icon::Exclamation};
}

run::Message mapSheetQuestion(std::size_t count) {
  std::string number;
  text::appendWhole(number, static_cast<std::int64_t>(count));
  return {.text = "The current folder has " + number + " map sheets for this county.\nDo you want to process " +
                  (count == 2 ? "both" : "all " + number) + "?",
          .title = "Multiple Map Sheets",
          .icon = run::Icon::Question};
}

std::string loadMapSheetCodes(const std::string& path) {
  std::string codes;
  std::error_code unknown;
  text::LineReader lines;
  if (!fs::is_regular_file(text::pathOf(path), unknown) || !lines.open(path)) return codes;
  std::string_view line;
  while (codes.size() < text::LineReader::kMaxLineLength && lines.next(line)) {
    const std::string_view code = text::trimBlanks(line);
    if (code.empty()) continue;
    if (!codes.empty()) codes += '~';
    codes += code;
  }
  return codes;
}

bool isMapSheet(const std::string& path, std::string_view codes) {
  const fs::path name = text::pathOf(path).filename();
  const std::string code = name.stem().string();
  return !code.empty() && text::equalsIgnoringCase(name.extension().string(), kEnding) &&
         text::findIgnoringCase(codes, code) != std::string_view::npos;
}

}  // namespace tovak::formats::database
