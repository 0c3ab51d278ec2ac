#include "formats/survey/eighty_column_reader.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "text/fixed_columns.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::survey {
namespace {

constexpr std::size_t kLineLength = 80;
/// From this value on the northing takes one more column, and the code one less.
constexpr double kWideNorthing = 1000000.0;

run::Message fileMessage(std::string_view text) {
  return {.text = std::string(text), .title = "Invalid UCC file", .icon = run::Icon::Exclamation};
}

run::Message noValidRecords() {
  return fileMessage("This UCC file does not contain any valid records.  Please correct this.");
}

run::Message tabFound() {
  return fileMessage(
      "This UCC file contains at least one TAB.  Please correct this.\n"
      "The output file will be complete to the first line with a TAB.");
}

/// A station has three digits between its plus sign and its point in metres, two in feet.
bool holdsStation(std::string_view line) {
  const bool metric = text::columnAt(line, 14) == '+' && text::columnAt(line, 18) == '.';
  const bool english = text::columnAt(line, 16) == '+' && text::columnAt(line, 19) == '.';
  return metric || english;
}

/// The letter of a trailer group that replaces the first one of the class code.
bool isMark(char letter) {
  return letter >= 'A' && letter <= 'Z';
}

class EightyColumnReader final : public run::PointReader {
 public:
  explicit EightyColumnReader(const run::SourceContext& context)
      : lines_(context.lines), counts_(context.counts), doubts_(context.doubts), message_(context.message) {}

  bool check() override {
    lineAhead_ = nextPointLine();
    if (!lineAhead_) message_ = noValidRecords();
    alignment_ = holdsStation(line_);
    return lineAhead_;
  }

  run::ReadState read(run::PointRecord& point) override {
    if (!std::exchange(lineAhead_, false) && !nextPointLine()) return run::ReadState::End;
    if (line_.find('\t') != std::string_view::npos) {
      message_ = tabFound();
      return run::ReadState::EndedEarly;
    }
    record_.assign(line_.substr(0, kLineLength));
    record_.resize(kLineLength, ' ');
    point.sourceLine = lines_.lineNumber();
    textBehind_ = false;
    point.description = field(5, 34);
    point.InEastLon = number(35, 45);
    point.InNorthLat = number(46, 55);
    point.odField = field(77, 80);
    if (alignment_) {
      takeAlignmentFields(point);
    } else {
      takeOrdinaryFields(point);
    }
    if (textBehind_) doubts_.raise(run::Doubt::TextBehindNumber);
    return run::ReadState::Point;
  }

 private:
  bool nextPointLine() {
    while (lines_.next(line_)) {
      if (text::trimBlanks(line_).empty()) continue;
      if (line_.front() != '$') return true;
      run::addTo(counts_.comment, lines_.lineNumber());
    }
    line_ = {};
    return false;
  }

  void takeOrdinaryFields(run::PointRecord& point) {
    // Lines without a number take the last one given.
    if (!text::isBlank(record_, 1, 4)) lastNumber_ = field(1, 4);
    point.pointNumber = lastNumber_;
    const bool wide = point.InNorthLat >= kWideNorthing;
    if (wide) point.InNorthLat = number(46, 56);
    point.code = wide ? field(57, 57) : field(56, 57);
    point.phField = field(67, 69);
    point.owField = field(70, 73);
    // Column 65 belongs to the trailer group, and to the elevation when that has a third decimal.
    point.trailerGroup = field(65, 80);
    const char mark = point.trailerGroup.front();
    if (isMark(mark)) point.classCode.front() = mark;
    takeElevation(point);
  }

  void takeElevation(run::PointRecord& point) {
    const std::string_view elevation = field(58, 65);
    const std::size_t lastCharacter = elevation.find_last_not_of(' ');
    if (lastCharacter == std::string_view::npos) return;
    // A letter in the last column belongs to the trailer group.
    point.Elevation = number(58, isMark(elevation.back()) ? 64 : 65);
    const std::size_t trailingBlanks = elevation.size() - 1 - lastCharacter;
    point.elevationAccuracy = static_cast<text::Accuracy>(std::min<std::size_t>(trailingBlanks, 3));
  }

  void takeAlignmentFields(run::PointRecord& point) {
    if (!text::isBlank(record_, 1, 4)) point.pointNumber = field(1, 4);
    point.station = text::trimBlanks(field(10, 22));
    point.raField = text::trimBlanks(field(23, 34));
    point.phField = field(56, 59);
    point.owField = field(73, 76);
    point.alignmentPoint = true;
  }

  std::string_view field(std::size_t first, std::size_t last) const { return text::columns(record_, first, last); }

  double number(std::size_t first, std::size_t last) {
    return text::leadingNumber(text::withoutBlanks(field(first, last), scratch_), textBehind_);
  }

  text::LineReader& lines_;
  run::RecordCounts& counts_;
  run::DoubtFlags& doubts_;
  run::Message& message_;
  bool textBehind_ = false;  ///< a number of the record has text after it
  std::string_view line_;    ///< the point line read last, as the file has it
  bool lineAhead_ = false;   ///< that line has not been used yet
  bool alignment_ = false;
  std::string record_;  ///< the line in exactly 80 columns
  std::string lastNumber_;
  std::string scratch_;
};

}  // namespace

std::unique_ptr<run::PointReader> makeEightyColumnReader(const run::SourceContext& context) {
  return std::make_unique<EightyColumnReader>(context);
}

}  // namespace tovak::formats::survey
