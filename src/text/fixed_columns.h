/// Lines whose fields stand in fixed columns. Columns are counted from 1; ranges include both ends.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

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
  explicit ColumnLine(LineWriter& lines) : lines_(lines) {}

  /// The next `put` starts at `column`.
  void advanceTo(std::size_t column);
  void put(std::string_view text);
  /// Puts a text that is meant for a person's eyes: its characters count as columns rather than its bytes, and its
  /// control characters become blanks.
  void putText(std::string_view text);
  /// Writes the line and begins an empty one. False when the writer failed, now or on an earlier line.
  bool end();

 private:
  LineWriter& lines_;
  std::string line_;
  std::size_t width_ = 0;  ///< columns taken so far
  bool written_ = true;
};

/// Appends `value` with a decimal point always, `decimals` decimals (0 to 9, rounded half to even) and no leading
/// zeros:
/// ".500", "812.", "-12.35".
void appendMasked(std::string& out, double value, int decimals);

/// Appends `text` with blanks in front until its decimal point (or its end, without one) is character `position`,
/// counted from 1. A text that is longer in front of its point is appended as it is.
void appendPointAt(std::string& out, std::string_view text, std::size_t position);

/// Appends `text` with blanks in front up to `width` characters; a longer text as it is.
void appendRightAligned(std::string& out, std::string_view text, std::size_t width);

/// A point number of fixed-column files: zeros in front to four characters, the rightmost four kept.
void appendFourDigits(std::string& out, std::string_view pointNumber);

}  // namespace tovak::text
