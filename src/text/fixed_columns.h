/// Lines whose fields stand in fixed columns. Columns are counted from 1; ranges include both ends.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "text/line_writer.h"

namespace tovak::text {

/// The text of columns `first` to `last`; shorter where the line ends before, as if the missing columns were blank.
std::string_view columns(std::string_view line, std::size_t first, std::size_t last);

/// The text from column `first` to the end of the line.
std::string_view columnsFrom(std::string_view line, std::size_t first);

/// The character in a column, a blank beyond the end of the line.
char columnAt(std::string_view line, std::size_t column);

/// True when columns `first` to `last` hold blanks alone.
bool isBlank(std::string_view line, std::size_t first, std::size_t last);

/// Builds a line by advancing to columns. A line that is already past a column is ended, and the field starts at that
/// column of a new line: an overlong field shifts what follows it to the next line rather than into other columns.
class ColumnLine {
 public:
  explicit ColumnLine(LineWriter& writer) : writer_(writer) {}

  /// The next `put` starts at `column`.
  void advanceTo(std::size_t column);
  void put(std::string_view text) {
    lines_ += text;
    width_ += text.size();
  }
  /// Puts a number padded on the left so that its decimal point (or its end, without one) is character `position`,
  /// counted from 1, of what is put. One with more than that before its point is put as it is.
  void putPointAt(std::size_t position, std::string_view number) {
    putBlanksBefore(std::min(number.find('.'), number.size()) + 1, position);
    put(number);
  }
  /// Puts a text padded on the left to `width` characters; a longer one as it is.
  void putRightAligned(std::size_t width, std::string_view text) {
    putBlanksBefore(text.size(), width);
    put(text);
  }
  /// Puts a text for people to read: columns count its characters rather than its bytes, and its control characters
  /// become blanks.
  void putText(std::string_view text);
  /// Begins a new line, which is written together with those before it.
  void nextLine();
  /// Writes the line and begins an empty one. False when the writer failed, now or on an earlier line.
  bool end();
  /// Whether any field was too long since the last call.
  bool takeBroken() { return std::exchange(broken_, false); }

 private:
  /// As many as `size` lacks to `width`.
  void putBlanksBefore(std::size_t size, std::size_t width) {
    if (size >= width) return;
    lines_.append(width - size, ' ');
    width_ += width - size;
  }

  LineWriter& writer_;
  std::string lines_;      ///< those to be written together
  std::size_t width_ = 0;  ///< columns taken so far of the last one
  bool written_ = true;
  bool broken_ = false;
};

/// Appends `value`, always with a decimal point, `decimals` decimals (0 to 9, rounded half to even) and no leading
/// zeros: ".500", "812.", "-12.35".
void appendMasked(std::string& out, double value, int decimals);

/// A point number of fixed-column files: padded with leading zeros to four characters, or cut to the rightmost four.
/// False when the number was longer.
bool appendFourDigits(std::string& out, std::string_view pointNumber);

}  // namespace tovak::text
