#include "formats/survey/geopak_reader.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "run/projection_code.h"
#include "text/angle.h"
#include "text/fixed_columns.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::survey {
namespace {

constexpr std::string_view kRule = "-----------";
constexpr std::size_t kLastColumnStart = 255;

bool isRule(std::string_view line) {
  return line.starts_with(kRule);
}

bool isPageHeading(std::string_view line) {
  return text::columnAt(line, 1) == '*';
}

/// True for a line that adds to a point, or is empty.
bool isRemark(std::string_view line) {
  return isRule(line) || text::isBlank(line, 1, kRule.size());
}

/// Columns at which the fields after the point number begin; 0 for a field that the listing does not have.
struct ColumnStarts {
  std::size_t first = 0;  ///< coordinate
  std::size_t second = 0;
  std::size_t station = 0;
  std::size_t elevation = 0;

  /// A point number has at least one character.
  bool placeCoordinates() const { return first > 1 && station != 0; }
};

/// The column of the first blank from column `from` on with a hyphen after it, 0 for none.
std::size_t nextStart(std::string_view underline, std::size_t from) {
  // npos plus 1 is 0.
  return text::columns(underline, 1, kLastColumnStart + 1).find(" -", from - 1) + 1;
}

ColumnStarts columnStarts(std::string_view underline) {
  // Negative coordinates of a point would look like columns where the underline is missing.
  if (underline.find_first_not_of(" -") != std::string_view::npos) return {};
  ColumnStarts starts;
  std::size_t from = 1;
  for (std::size_t* const start : {&starts.first, &starts.second, &starts.station, &starts.elevation}) {
    *start = nextStart(underline, from);
    if (*start == 0) break;
    from = *start + 2;
  }
  return starts;
}

class GeopakReader final : public run::PointReader {
 public:
  explicit GeopakReader(const run::SourceContext& context)
      : lines_(context.lines),
        counts_(context.counts),
        doubts_(context.doubts),
        message_(context.message),
        angles_(run::isLatLong(context.settings.SourceProjectionCode)),
        form_(context.settings.latLongForm) {}

  bool check() override {
    if (findColumns() && findFirstPoint()) return true;
    complain("No Geopak Points Found in\n" + lines_.fileName());
    return false;
  }

  run::ReadState read(run::PointRecord& point) override {
    if (!atPoint_) return run::ReadState::End;
    point.sourceLine = lines_.lineNumber();
    if (!takePoint(point)) {
      std::string text = "Invalid Number Found in\n" + lines_.fileName() + ": line ";
      text::appendWhole(text, static_cast<std::int64_t>(point.sourceLine));
      complain(std::move(text));
      return run::ReadState::Stopped;
    }
    readAhead(point);
    return run::ReadState::Point;
  }

 private:
  void complain(std::string text) {
    message_ = {.text = std::move(text), .title = "Invalid Geopak File", .icon = run::Icon::Exclamation};
  }

  bool findColumns() {
    while (lines_.next(line_)) {
      if (line_.find(" Station") == std::string_view::npos || line_.find(" Point") == std::string_view::npos) continue;
      eastingFirst_ = line_.find('X') != std::string_view::npos;
      if (!lines_.next(line_)) return false;
      starts_ = columnStarts(line_);
      return starts_.placeCoordinates();
    }
    return false;
  }

  bool findFirstPoint() {
    while (lines_.next(line_)) {
      if (isPageHeading(line_)) {
        skipPageHeading();
      } else if (!isRule(line_) && !text::trimBlanks(line_).empty()) {
        return atPoint_ = true;
      }
    }
    return false;
  }

  /// Takes the remarks on a point, up to the next point.
  void readAhead(run::PointRecord& point) {
    while (lines_.next(line_)) {
      if (isPageHeading(line_)) {
        skipPageHeading();
      } else if (!isRemark(line_)) {
        return;
      } else if (line_.find("Feature") != std::string_view::npos) {
        takeRemark(point.featureCode, line_);
      } else if (line_.find("Description") != std::string_view::npos) {
        takeRemark(point.description, line_);
      }
    }
    atPoint_ = false;
  }

  /// Takes the text after the colon, if there is one.
  void takeRemark(std::string& field, std::string_view line) {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) return;
    if (!field.empty()) doubts_.raise(run::Doubt::RunTogether);
    field = text::trimBlanks(line.substr(colon + 1));
  }

  /// A heading without an end swallows the rest of the listing, points included: these lines go into the account.
  void skipPageHeading() {
    const std::uint64_t firstLine = lines_.lineNumber();
    while (lines_.next(line_)) {
      if (isRule(line_)) return;
    }
    for (std::uint64_t line = firstLine; line <= lines_.lineNumber(); ++line) run::addTo(counts_.comment, line);
  }

  /// False when a field is not a number.
  bool takePoint(run::PointRecord& point) {
    std::string_view northing = text::columns(line_, starts_.first, starts_.second - 1);
    std::string_view easting = text::columns(line_, starts_.second, starts_.station - 1);
    if (eastingFirst_) std::swap(northing, easting);
    point.pointNumber = text::trimBlanks(text::columns(line_, 1, starts_.first - 1));
    textBehind_ = false;
    if (!takeCoordinates(point, northing, easting)) return false;
    if (starts_.elevation != 0 && !takeStationAndElevation(point)) return false;
    if (textBehind_) doubts_.raise(run::Doubt::TextBehindNumber);
    return true;
  }

  bool takeCoordinates(run::PointRecord& point, std::string_view northing, std::string_view easting) {
    if (angles_) {
      const text::AngleReading latitude = text::readAngle(northing, form_, text::AngleAxis::Latitude, scratch_);
      const text::AngleReading longitude = text::readAngle(easting, form_, text::AngleAxis::Longitude, scratch_);
      run::takeAngles(point, latitude, longitude, doubts_);
      return true;
    }
    const std::optional<double> north = number(northing);
    const std::optional<double> east = number(easting);
    if (!north || !east) return false;
    point.InNorthLat = *north;
    point.InEastLon = *east;
    return true;
  }

  bool takeStationAndElevation(run::PointRecord& point) {
    const std::string_view text = text::columnsFrom(line_, starts_.elevation);
    const std::optional<double> elevation = number(text);
    if (!elevation) return false;
    point.Elevation = *elevation;
    // Decimals come after the last separator.
    point.elevationAccuracy = text::writtenAccuracy(text::parseLeadingNumber(text.substr(text.rfind(',') + 1)));
    point.station = text::trimBlanks(text::columns(line_, starts_.station, starts_.elevation - 1));
    return true;
  }

  std::optional<double> number(std::string_view field) {
    if (field.find(',') == std::string_view::npos) return text::leadingNumber(field, textBehind_);
    return text::thousandsNumber(field, scratch_);
  }

  text::LineReader& lines_;
  run::RecordCounts& counts_;
  run::DoubtFlags& doubts_;
  run::Message& message_;
  const bool angles_;
  const text::AngleForm form_;
  bool textBehind_ = false;  ///< a number of the point has text after it
  bool eastingFirst_ = false;
  ColumnStarts starts_;
  /// The line read last; between two reads, the line of the next point, if there is one.
  std::string_view line_;
  bool atPoint_ = false;
  std::string scratch_;
};

}  // namespace

std::unique_ptr<run::PointReader> makeGeopakReader(const run::SourceContext& context) {
  return std::make_unique<GeopakReader>(context);
}

}  // namespace tovak::formats::survey
