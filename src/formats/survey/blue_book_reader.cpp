#include "formats/survey/blue_book_reader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "formats/survey/blue_book_record.h"
#include "run/default_numbering.h"
#include "text/angle.h"
#include "text/fixed_columns.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::survey {
namespace {

constexpr std::size_t kRecordLength = 80;

/// A number without a written decimal point; the point is implied after column `lastWhole`.
struct ImpliedField {
  std::size_t first;
  std::size_t lastWhole;
  std::size_t last;

  constexpr std::size_t decimals() const { return last - lastWhole; }
};

constexpr ImpliedField kLatitude = {45, 50, 55};
constexpr ImpliedField kLongitude = {57, 63, 68};
constexpr ImpliedField kFirstGrid = {45, 51, 54};
constexpr ImpliedField kSecondGrid = {55, 62, 65};
constexpr ImpliedField kElevation = {70, 73, 75};
constexpr ImpliedField kOrthometricHeight = {17, 20, 23};
constexpr ImpliedField kGeoidHeight = {36, 39, 42};
constexpr ImpliedField kEllipsoidHeight = {46, 49, 52};

bool isBlank(std::string_view record, const ImpliedField& field) {
  return text::isBlank(record, field.first, field.last);
}

/// The number of a field; nothing when it is blank or not a number.
std::optional<double> numberIn(std::string_view record, const ImpliedField& field) {
  const std::string_view digits = text::columns(record, field.first, field.last);
  // A point or an exponent among the digits would change the number.
  const auto allowed = [](char c) { return (c >= '0' && c <= '9') || c == ' ' || c == '-' || c == '+'; };
  if (!std::ranges::all_of(digits, allowed)) return std::nullopt;
  const std::size_t whole = field.lastWhole + 1 - field.first;
  std::array<char, 16> joined;
  char* end = joined.data() + digits.copy(joined.data(), whole);
  *end++ = '.';
  end += digits.copy(end, field.decimals(), whole);
  return text::strictNumber({joined.data(), static_cast<std::size_t>(end - joined.data())});
}

/// Blanks after the digits are decimals left out.
text::Accuracy writtenAccuracy(std::string_view record, const ImpliedField& field) {
  const std::string_view digits = text::columns(record, field.first, field.last);
  const std::size_t blanks = digits.size() - 1 - digits.find_last_not_of(' ');
  return static_cast<text::Accuracy>(std::min<std::size_t>(3 - field.decimals() + blanks, 3));
}

class BlueBookReader final : public run::PointReader {
 public:
  explicit BlueBookReader(const run::SourceContext& context)
      : lines_(context.lines),
        settings_(context.settings),
        counts_(context.counts),
        doubts_(context.doubts),
        message_(context.message),
        code_(blue_book::positionCode(context.settings.SourceProjectionCode)),
        unit_(run::unitOf(context.settings.source)) {}

  bool check() override {
    std::string_view line;
    while (nextOtherLine(line)) passOver(line);
    if (atPosition_) return true;
    message_ = {.text = "This NGS file does not contain any valid records.  Please correct this.",
                .title = "Invalid NGS file",
                .icon = run::Icon::Exclamation};
    return false;
  }

  run::ReadState read(run::PointRecord& point) override {
    if (!atPosition_) return run::ReadState::End;
    point.sourceLine = lines_.lineNumber();  // the read-ahead stopped at this record
    if (!takePosition(point)) return stopAt(code_);
    return readAhead(point) ? run::ReadState::Point : stopAt(blue_book::kHeightCode);
  }

 private:
  /// A record padded with blanks, so that a number cut off by the end of the line is noticed.
  void keep(std::string_view line) {
    record_ = text::columns(line, 1, kRecordLength);
    record_.resize(kRecordLength, ' ');
  }

  /// The next line that is not a position record. False when a position record is kept for the next point, and at the
  /// end of the file.
  bool nextOtherLine(std::string_view& line) {
    atPosition_ = false;
    if (!lines_.next(line)) return false;
    if (text::columns(line, 7, 10) != code_) return true;
    keep(line);
    atPosition_ = true;
    return false;
  }

  /// Reads up to the next position record. False when the point's height record is faulty.
  bool readAhead(run::PointRecord& point) {
    bool heightsTaken = false;
    std::string_view line;
    while (nextOtherLine(line)) {
      if (heightsTaken || text::columns(line, 7, 10) != blue_book::kHeightCode) {
        passOver(line);
        continue;
      }
      keep(line);
      if (!takeHeights(point)) return false;
      heightsTaken = true;
    }
    return true;
  }

  void passOver(std::string_view line) {
    run::addTo(text::columnAt(line, 1) == '$' ? counts_.comment : counts_.noPoint, lines_.lineNumber());
  }

  run::ReadState stopAt(std::string_view code) {
    message_ = {.text = "Invalid " + std::string(code) + " Record Found",
                .title = "Blue Book File Error",
                .icon = run::Icon::Exclamation};
    return run::ReadState::Stopped;
  }

  bool takePosition(run::PointRecord& point) {
    point.pointNumber = text::columns(record_, 11, 14);
    // The option to allow blank numbers does not apply to this format.
    if (text::isBlank(record_, 11, 14)) run::takeDefaultNumber(settings_, point.pointNumber);
    point.description = text::columns(record_, 15, 44);
    const bool taken = run::isLatLong(settings_.SourceProjectionCode) ? takeAngles(point) : takeGrid(point);
    if (!taken || !takeElevation(point, kElevation)) return false;
    takeClassCode(point);
    return true;
  }

  bool takeAngles(run::PointRecord& point) {
    const std::optional<double> latitude = numberIn(record_, kLatitude);
    const std::optional<double> longitude = numberIn(record_, kLongitude);
    if (!latitude || !longitude) return false;
    point.packedAngles = {.latitude = *latitude, .longitude = *longitude};
    run::takeAngles(point, text::unpackSeconds(*latitude), text::unpackSeconds(*longitude), doubts_);
    return true;
  }

  bool takeGrid(run::PointRecord& point) {
    const std::optional<double> easting = numberIn(record_, kFirstGrid);
    const std::optional<double> northing = numberIn(record_, kSecondGrid);
    if (!easting || !northing) return false;
    point.InNorthLat = run::convertLength(*northing, run::LengthUnit::metres, unit_);
    point.InEastLon = run::convertLength(*easting, run::LengthUnit::metres, unit_);
    return true;
  }

  /// A blank field leaves elevation and decimals as they are.
  bool takeElevation(run::PointRecord& point, const ImpliedField& field) {
    if (isBlank(record_, field)) return true;
    const std::optional<double> metres = numberIn(record_, field);
    if (!metres) return false;
    point.Elevation = run::convertLength(*metres, run::LengthUnit::metres, unit_);
    point.elevationAccuracy = writtenAccuracy(record_, field);
    return true;
  }

  /// Each part keeps its default where it is blank.
  void takeClassCode(run::PointRecord& point) {
    constexpr struct {
      std::size_t first;
      std::size_t last;
    } kParts[] = {{76, 76}, {77, 78}, {79, 80}};
    for (const auto& part : kParts) {
      if (text::isBlank(record_, part.first, part.last)) continue;
      const std::string_view columns = text::columns(record_, part.first, part.last);
      point.classCode.replace(part.first - kParts[0].first, columns.size(), columns);
    }
  }

  bool takeHeights(run::PointRecord& point) {
    return takeElevation(point, kOrthometricHeight) && takeHeight(point.geoidHeight, kGeoidHeight) &&
           takeHeight(point.ellipsoidHeight, kEllipsoidHeight);
  }

  /// A blank field is a height of 0.
  bool takeHeight(std::string& height, const ImpliedField& field) {
    const std::optional<double> metres = isBlank(record_, field) ? 0.0 : numberIn(record_, field);
    if (!metres) return false;
    text::appendFixed(height, run::convertLength(*metres, run::LengthUnit::metres, unit_), 3);
    return true;
  }

  text::LineReader& lines_;
  run::RunSettings& settings_;
  run::RecordCounts& counts_;
  run::DoubtFlags& doubts_;
  run::Message& message_;
  const std::string_view code_;
  const run::LengthUnit unit_;
  std::string record_;  ///< the record being taken, then the next position record
  bool atPosition_ = false;
};

}  // namespace

std::unique_ptr<run::PointReader> makeBlueBookReader(const run::SourceContext& context) {
  return std::make_unique<BlueBookReader>(context);
}

}  // namespace tovak::formats::survey
