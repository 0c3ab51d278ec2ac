#include "text/fixed_columns.h"

#include <algorithm>

#include "text/characters.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::text {

std::string_view columns(std::string_view line, std::size_t first, std::size_t last) {
  return columnsFrom(line, first).substr(0, last + 1 - first);
}

std::string_view columnsFrom(std::string_view line, std::size_t first) {
  return line.substr(std::min(first - 1, line.size()));
}

char columnAt(std::string_view line, std::size_t column) {
  return column <= line.size() ? line[column - 1] : ' ';
}

bool isBlank(std::string_view line, std::size_t first, std::size_t last) {
  return trimBlanks(columns(line, first, last)).empty();
}

void ColumnLine::advanceTo(std::size_t column) {
  if (width_ >= column) {
    broken_ = true;
    nextLine();
  }
  const std::size_t missing = column - 1 - width_;
  if (missing == 0) return;
  lines_.append(missing, ' ');
  width_ += missing;
}

void ColumnLine::putText(std::string_view text) {
  // Nearly every text has printable ASCII characters alone, each of one byte and one column.
  if (std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; })) return put(text);
  appendPrintable(lines_, text);
  width_ += characterCount(text);
}

void ColumnLine::nextLine() {
  lines_ += LineWriter::kLineEnd;
  width_ = 0;
}

bool ColumnLine::end() {
  nextLine();
  written_ = writer_.write(lines_) && written_;
  lines_.clear();
  return written_;
}

void appendMasked(std::string& out, double value, int decimals) {
  const std::size_t start = out.size();
  appendFixed(out, value, decimals);
  if (decimals == 0) out += '.';
  const std::size_t firstDigit = start + (out[start] == '-' ? 1 : 0);
  if (out[firstDigit] == '0' && out[firstDigit + 1] == '.') out.erase(firstDigit, 1);
}

bool appendFourDigits(std::string& out, std::string_view pointNumber) {
  constexpr std::size_t kWidth = 4;
  const std::string_view kept = lastCharactersWithin(pointNumber, kWidth);
  // At most three leading zeros are added.
  out.append(std::min<std::size_t>(kWidth - kept.size(), 3), '0');
  out += kept;
  return kept.size() == pointNumber.size();
}

}  // namespace tovak::text
