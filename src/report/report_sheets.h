/// A report file as sheets of paper: lines of text, ready to be painted one below the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "run/report_heading.h"
#include "text/line_reader.h"

namespace tovak::report {

/// The lines of one sheet, as characters for a fixed pitch: no control characters, not necessarily valid UTF-8.
using Sheet = std::vector<std::string>;

/// The room that the sheets of a report need on paper.
struct SheetSize {
  std::size_t columns = 0;  ///< characters of the widest line
  std::size_t lines = 0;    ///< of the tallest sheet
  int sheets = 0;
};

/// Cuts a file at its form feeds, one sheet a page. A line of more than 100 characters is broken, between two words
/// where possible; a page with too many lines for one sheet continues on the next. The file may hold any bytes, and
/// memory does not grow with it.
class ReportSheets {
 public:
  /// From byte `start` of the file on. With a heading, which is for the report of a run, every sheet has the printed
  /// head instead of the file's, above the column heads and points of the file.
  explicit ReportSheets(std::string fileName, std::uint64_t start = 0,
                        std::optional<run::ReportHeading> heading = std::nullopt);
  ReportSheets(const ReportSheets&) = delete;
  ReportSheets& operator=(const ReportSheets&) = delete;
  ~ReportSheets() = default;

  /// Opens the file and reads it once to learn the size. False: `error()` says why.
  bool open();
  const SheetSize& size() const { return size_; }
  /// The number, from 1, of the sheet where the newest report of the file begins: the one behind the last but one end
  /// of a report.
  int newestReport() const { return newestReport_; }
  /// Goes back to the first sheet.
  bool rewind();
  /// The next sheet; false after the last one, and when the file failed.
  bool next(Sheet& sheet);

  /// The sheet with this number, from 1, by going on to it from where the last one ended, or from the beginning. False
  /// when there is none, and when the file failed.
  bool take(int number, Sheet& sheet);

  const std::string& fileName() const { return fileName_; }
  /// What went wrong, with the file's name, empty without a failure.
  const std::string& error() const { return lines_.error(); }

 private:
  enum class Piece { Line, PageEnd, End };
  Piece take();
  Piece takeBodyPiece();
  void measure();
  Sheet head() const;

  const std::string fileName_;
  const std::uint64_t start_;
  const std::optional<run::ReportHeading> heading_;
  SheetSize size_;
  int newestReport_ = 1;

  text::LineReader lines_;
  std::string_view rest_;  ///< of the line being cut
  bool inLine_ = false;
  bool inHead_ = false;  ///< of a page whose head is replaced
  std::string line_;
  int number_ = 0;
};

}  // namespace tovak::report
