#include "formats/delimited/format_editor.h"

#include <algorithm>
#include <utility>

#include "formats/delimited/field_codes.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::delimited {
namespace {

using Refusal = FormatEditor::Refusal;

constexpr std::string_view kNewName = "New Format";
constexpr std::string_view kNewListName = "New Format (change name before saving)";

run::Message noChange(const char* text) {
  return {.text = text, .title = "No Changes Made", .icon = run::Icon::Information, .focus = "FmtList"};
}

/// The definitions file keeps names and headers as lines.
std::string oneLine(std::string_view text) {
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return line;
}

/// The text of a field in the list of fields.
std::string fieldName(std::int16_t code) {
  if (code == kFieldNone) return "(no field)";
  if (code < static_cast<std::int16_t>(kFieldKinds.size())) {
    return std::string(kFieldKinds[static_cast<std::size_t>(code)].editorName);
  }
  std::string name = "(code ";
  text::appendWhole(name, code);
  return name + ')';
}

/// The position in a list of codes where the given one begins.
std::size_t codeStart(std::string_view fieldCodes, std::size_t number) {
  std::size_t start = 0;
  for (; number > 0; --number) start = std::min(fieldCodes.find('~', start), fieldCodes.size() - 1) + 1;
  return start;
}

/// The 8-bit character that a UTF-8 text begins with, or nothing when its first character is not one.
std::optional<char> firstCharacter(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  if (first < 0x80U) return text.front();
  if ((first != 0xC2U && first != 0xC3U) || text.size() < 2) return std::nullopt;
  return static_cast<char>((first & 0x03U) << 6U | (static_cast<unsigned char>(text[1]) & 0x3FU));
}

/// Gives the new position of an entry when one entry is removed; the first one takes the place of that entry.
std::size_t withoutEntry(std::size_t entry, std::size_t removed) {
  if (entry == removed) return 0;
  return entry > removed ? entry - 1 : entry;
}

}  // namespace

std::string editorTitle(EditorPurpose purpose) {
  const std::string title = " User-Defined Delimited Format ";
  if (purpose == EditorPurpose::InputFile) return title + "for Input File";
  return title + (purpose == EditorPurpose::OutputFile ? "for Output File" : "Utility");
}

FormatEditor::FormatEditor(DefinedFormats& formats, EditorPurpose purpose) : formats_(formats), purpose_(purpose) {
  for (const run::DelimitedFormat& format : formats.table) listNames_.push_back(format.name);
  if (purpose == EditorPurpose::InputFile) show(formats.chosenSource);
  if (purpose == EditorPurpose::OutputFile) show(formats.chosenTarget);
}

void FormatEditor::show(std::size_t index) {
  index_ = index < formats_.table.size() ? index : 0;
  cursor_ = 0;
}

Refusal FormatEditor::append(run::DelimitedFormat format, const std::string& listName) {
  if (formats_.table.size() >= kMostFormats) return noChange("There is no room for more than 26 formats.");
  formats_.table.push_back(std::move(format));
  listNames_.push_back(listName);
  show(formats_.table.size() - 1);
  return std::nullopt;
}

Refusal FormatEditor::addFormat() {
  return append({.name = std::string(kNewName), .fieldCodes = {}}, std::string(kNewListName));
}

Refusal FormatEditor::copyFormat() {
  run::DelimitedFormat copy = format();
  copy.name = "Copy of " + copy.name;
  const std::string name = copy.name;
  return append(std::move(copy), name);
}

Refusal FormatEditor::removeFormat() {
  if (const Refusal refusal = mayChange()) return refusal;
  formats_.table.erase(formats_.table.begin() + static_cast<std::ptrdiff_t>(index_));
  listNames_.erase(listNames_.begin() + static_cast<std::ptrdiff_t>(index_));
  formats_.chosenSource = withoutEntry(formats_.chosenSource, index_);
  formats_.chosenTarget = withoutEntry(formats_.chosenTarget, index_);
  show(std::min(index_, formats_.table.size() - 1));
  return std::nullopt;
}

Refusal FormatEditor::rename(std::string_view typed) {
  if (typed == listNames_[index_]) return std::nullopt;
  if (const Refusal refusal = mayChange()) return refusal;
  const std::string name = oneLine(typed);
  if (text::trimBlanks(name).empty()) return std::nullopt;
  shown().name = listNames_[index_] = name;
  return std::nullopt;
}

std::string FormatEditor::fieldList() const {
  std::string list;
  for (const std::int16_t code : parseFieldCodes(format().fieldCodes)) {
    list += fieldName(code);
    list += {' ', format().delimiter, ' '};
  }
  return list;
}

std::vector<std::size_t> FormatEditor::boundaries() const {
  constexpr std::size_t kBetweenNames = 3;
  std::vector<std::size_t> starts = {0};
  for (const std::int16_t code : parseFieldCodes(format().fieldCodes)) {
    starts.push_back(starts.back() + fieldName(code).size() + kBetweenNames);
  }
  return starts;
}

void FormatEditor::placeCursor(std::size_t position) {
  cursor_ = std::min(position, boundaries().back());
}

std::size_t FormatEditor::heldField(const std::vector<std::size_t>& boundaries) const {
  const auto behind = std::upper_bound(boundaries.begin(), boundaries.end() - 1, cursor_);
  const auto field = static_cast<std::size_t>(behind - boundaries.begin()) - 1;
  return std::min(field, boundaries.size() - 2);
}

FormatEditor::Place FormatEditor::fieldAtCursor() const {
  const std::vector<std::size_t> starts = boundaries();
  if (starts.size() == 1) return {};
  const std::size_t field = heldField(starts);
  return {.start = starts[field], .length = starts[field + 1] - starts[field]};
}

void FormatEditor::nextField() {
  const std::vector<std::size_t> starts = boundaries();
  const auto next = std::upper_bound(starts.begin(), starts.end(), cursor_);
  if (next != starts.end()) cursor_ = *next;
}

void FormatEditor::previousField() {
  const std::vector<std::size_t> starts = boundaries();
  const auto here = std::lower_bound(starts.begin(), starts.end(), cursor_);
  if (here != starts.begin()) cursor_ = *(here - 1);
}

Refusal FormatEditor::addField(std::int16_t code) {
  if (const Refusal refusal = mayChange()) return refusal;
  const std::vector<std::size_t> starts = boundaries();
  const std::size_t fields = starts.size() - 1;
  const std::size_t field = cursor_ == starts.back() ? fields : heldField(starts);
  std::string& codes = shown().fieldCodes;
  // A list that was written by hand may lack its last "~".
  const bool markLacks =
      field == fields && static_cast<std::size_t>(std::count(codes.begin(), codes.end(), '~')) < fields;
  if (markLacks) codes += '~';
  std::string added = " ";
  text::appendWhole(added, code);
  codes.insert(codeStart(codes, field), added + '~');
  cursor_ = boundaries()[field + 1];
  return std::nullopt;
}

Refusal FormatEditor::deleteField() {
  if (const Refusal refusal = mayChange()) return refusal;
  const std::vector<std::size_t> starts = boundaries();
  if (starts.size() == 1) return std::nullopt;
  const std::size_t field = heldField(starts);
  std::string& codes = shown().fieldCodes;
  const std::size_t start = codeStart(codes, field);
  codes.erase(start, codeStart(codes, field + 1) - start);
  cursor_ = starts[field];
  return std::nullopt;
}

std::string FormatEditor::delimiterText() const {
  const char delimiter = format().delimiter;
  if (delimiter == '\t') return "\\T";
  return delimiter == '\n' ? "\\N" : std::string(1, delimiter);
}

Refusal FormatEditor::setDelimiter(std::string_view typed) {
  if (typed.empty()) return std::nullopt;
  std::optional<char> delimiter = firstCharacter(typed);
  if (text::equalsIgnoringCase(typed, "\\T")) delimiter = '\t';
  if (text::equalsIgnoringCase(typed, "\\N")) delimiter = '\n';
  if (delimiter == format().delimiter) return std::nullopt;
  if (const Refusal refusal = mayChange()) return refusal;
  if (!delimiter) return noChange("The delimiter must be one of the 256 characters of the 8-bit character set.");
  shown().delimiter = *delimiter;
  return std::nullopt;
}

Refusal FormatEditor::setLatLongFormat(std::uint8_t latLongFormat) {
  if (latLongFormat == format().latLongFormat) return std::nullopt;
  if (const Refusal refusal = mayChange()) return refusal;
  shown().latLongFormat = latLongFormat;
  return std::nullopt;
}

Refusal FormatEditor::setHeader(std::string_view header) {
  if (const Refusal refusal = mayChange()) return refusal;
  shown().headerLine = oneLine(header);
  return std::nullopt;
}

Refusal FormatEditor::generateHeader() {
  std::string header;
  for (const std::int16_t code : parseFieldCodes(format().fieldCodes)) {
    const std::string_view name = fieldHeaderName(code);
    if (name.empty()) break;
    header += name;
    header += format().delimiter;
  }
  return setHeader(header);
}

Refusal FormatEditor::includeHeader(bool include) {
  if (const Refusal refusal = mayChange()) return refusal;
  shown().includeHeader = include;
  return std::nullopt;
}

Refusal FormatEditor::mayChange() const {
  if (index_ != 0) return std::nullopt;
  return noChange("The Tovak Standard Format cannot be modified.  Try making a copy.");
}

bool FormatEditor::save(const std::string& path, std::string& error) {
  if (!saveDefinitions(path, formats_.table, listNames_.size(), error)) return false;
  formats_.saved = formats_.table;
  return true;
}

void FormatEditor::choose(run::RunSettings& settings) {
  if (purpose_ == EditorPurpose::InputFile) {
    settings.sourceDelimited = format();
    formats_.chosenSource = index_;
  }
  if (purpose_ == EditorPurpose::OutputFile) {
    settings.targetDelimited = format();
    formats_.chosenTarget = index_;
  }
}

}  // namespace tovak::formats::delimited
