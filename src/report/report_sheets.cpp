#include "report/report_sheets.h"

#include <algorithm>
#include <utility>

#include "report/report_lines.h"
#include "text/characters.h"

namespace tovak::report {
namespace {

/// A wider limit would print a whole report in small letters because of one refused point with a long reason.
constexpr std::size_t kMostColumns = 100;

/// A page with no more lines than this is kept on one sheet, in smaller letters; longer ones are cut into sheets of
/// ordinary height.
constexpr std::size_t kMostLines = 96;
constexpr std::size_t kOrdinaryLines = 68;

constexpr char kFormFeed = '\f';

/// A line with a text at each of some columns.
struct LineBuilder {
  std::string line;
  LineBuilder& at(std::size_t column, std::string_view text) {
    const std::size_t width = text::characterCount(line);
    line.append(width < column ? column - 1 - width : 1, ' ');
    text::appendPrintable(line, text);
    return *this;
  }
};

/// The part of a text that goes on one line of paper. Words stay whole, unless that would leave half of the line empty.
std::string_view firstLineOf(std::string_view text) {
  const std::string_view line = text::firstCharacters(text, kMostColumns);
  const std::size_t blank = line.rfind(' ');
  const bool cut = line.size() < text.size() && blank != std::string_view::npos && blank >= line.size() / 2;
  return cut ? line.substr(0, blank + 1) : line;
}

}  // namespace

ReportSheets::ReportSheets(std::string fileName, std::uint64_t start, std::optional<run::ReportHeading> heading)
    : fileName_(std::move(fileName)), start_(start), heading_(std::move(heading)) {}

bool ReportSheets::open() {
  if (!lines_.open(fileName_, start_)) return false;
  measure();
  return error().empty() && rewind();
}

bool ReportSheets::rewind() {
  inLine_ = false;
  inHead_ = heading_.has_value();
  number_ = 0;
  return lines_.rewind();
}

/// One line for the paper, or the end of a page, which may stand anywhere in a line of the file.
ReportSheets::Piece ReportSheets::take() {
  if (!inLine_) {
    if (!lines_.next(rest_)) return Piece::End;
    inLine_ = true;
  }
  const bool pageEnds = rest_.starts_with(kFormFeed);
  if (pageEnds) {
    rest_.remove_prefix(1);
  } else {
    const std::string_view line = firstLineOf(rest_.substr(0, rest_.find(kFormFeed)));
    line_.clear();
    text::appendPrintable(line_, line);
    rest_.remove_prefix(line.size());
  }
  inLine_ = !rest_.empty();
  return pageEnds ? Piece::PageEnd : Piece::Line;
}

/// The same without the head of a page, that is the lines above the first rule, where the head is replaced.
ReportSheets::Piece ReportSheets::takeBodyPiece() {
  for (;;) {
    const Piece piece = take();
    if (piece == Piece::PageEnd) inHead_ = heading_.has_value();
    if (piece == Piece::Line && line_ == ruleLine()) inHead_ = false;
    if (piece != Piece::Line || !inHead_) return piece;
  }
}

void ReportSheets::measure() {
  inLine_ = false;
  inHead_ = heading_.has_value();
  size_ = {};
  const Sheet headLines = head();
  for (const std::string& line : headLines) size_.columns = std::max(size_.columns, text::characterCount(line));
  const std::size_t room = kOrdinaryLines - headLines.size();
  std::size_t tallest = 0;
  std::size_t lines = 0;
  int pages = 0;
  std::size_t cutSheets = 0;
  bool reportEnded = false;
  int newestPage = 0;
  std::size_t newestCut = 0;
  for (Piece piece = Piece::Line; piece != Piece::End;) {
    piece = takeBodyPiece();
    if (piece == Piece::Line) {
      if (lines++ == 0 && std::exchange(reportEnded, false)) {
        newestPage = pages;
        newestCut = cutSheets;
      }
      reportEnded = reportEnded || line_.find(kReportMark) != std::string::npos;
      size_.columns = std::max(size_.columns, text::characterCount(line_));
    } else if (lines > 0) {
      ++pages;
      cutSheets += (lines + room - 1) / room;
      tallest = std::max(tallest, lines + headLines.size());
      lines = 0;
    }
  }
  const bool whole = tallest <= kMostLines;
  size_.lines = whole ? tallest : kOrdinaryLines;
  size_.sheets = whole ? pages : static_cast<int>(cutSheets);
  newestReport_ = 1 + (whole ? newestPage : static_cast<int>(newestCut));
}

bool ReportSheets::take(int number, Sheet& sheet) {
  if (number <= number_ && !rewind()) return false;
  while (next(sheet)) {
    if (number_ == number) return true;
  }
  return false;
}

bool ReportSheets::next(Sheet& sheet) {
  ++number_;
  sheet = head();
  const std::size_t headSize = sheet.size();
  for (;;) {
    const Piece piece = takeBodyPiece();
    if (piece == Piece::Line) sheet.push_back(line_);
    const bool filled = sheet.size() > headSize;
    if (piece == Piece::End) return filled && error().empty();
    if (filled && (piece == Piece::PageEnd || sheet.size() == size_.lines)) return true;
  }
}

Sheet ReportSheets::head() const {
  if (!heading_) return {};
  std::string date;
  text::appendDate(date, heading_->date, '/');
  const std::string title = "Calvadora Coordinate Conversions  (Version " + heading_->version + ")";
  constexpr std::size_t kDateColumn = 58;
  return {LineBuilder().at(kLeftColumn, title).at(kDateColumn, date).at(kPageColumn, pageText(number_)).line,
          LineBuilder().at(kLeftColumn, "Source Projection: " + heading_->source).line,
          LineBuilder().at(kLeftColumn, "Target Projection: " + heading_->target).line};
}

}  // namespace tovak::report
