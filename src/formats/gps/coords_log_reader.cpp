#include "formats/gps/coords_log_reader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "run/projection_code.h"
#include "run/run_messages.h"
#include "text/characters.h"
#include "text/fixed_columns.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::gps {
namespace {

constexpr std::size_t kNumberLength = 4;
constexpr std::size_t kValueColumn = 47;

/// What the header of a listing has to say about the coordinate system, and the complaint when it does not.
struct ListedSystem {
  std::int16_t projectionCode;
  std::string_view system;
  std::string_view systemContents;
  std::string_view zone;
  std::string_view zoneContents;
};

constexpr std::string_view kAngles = "latitudes and longitudes";
constexpr std::string_view kLambert = "1983 State Plane Lambert";
constexpr std::string_view kPlane = "state plane coordinates";

constexpr ListedSystem kListedSystems[] = {
    {run::kLatLongNad83, "Geographic", kAngles, "Global", kAngles},
    {run::kLatLongNad27, "Geographic", kAngles, "Global", kAngles},
    {run::kStatePlaneNorth, kLambert, kPlane, "Calvadora North", "Calvadora North state plane coordinates"},
    {run::kStatePlaneCentral, kLambert, kPlane, "Calvadora Central", "Calvadora Central state plane coordinates"},
    {run::kStatePlaneSouth, kLambert, kPlane, "Calvadora South", "Calvadora South state plane coordinates"},
};

/// Null for a system whose name is not checked.
const ListedSystem* listedSystem(std::int16_t projectionCode) {
  const auto* const found = std::ranges::find(kListedSystems, projectionCode, &ListedSystem::projectionCode);
  return found == std::end(kListedSystems) ? nullptr : found;
}

bool holds(std::string_view line, std::string_view tag) {
  return line.find(tag) != std::string_view::npos;
}

bool isBlank(std::string_view line) {
  return line.empty() || (line.back() == ' ' && text::unlessBlank(line).empty());
}

std::string without(std::string_view contents) {
  return "This Trimble Coords.log file does not contain " + std::string(contents) + ".  Please correct this.";
}

/// What is wrong with a line of the header; empty when it is right.
std::string headerFault(std::string_view line, const ListedSystem* expected) {
  if (holds(line, "Datum") && text::columnsFrom(line, 9) != "NAD-83") {
    return "This Trimble Coords.log file is not for the North American Datum of 1983.  Please correct this.";
  }
  if (expected == nullptr) return {};
  if (holds(line, "System") && text::trimBlanks(text::columnsFrom(line, 21)) != expected->system) {
    return without(expected->systemContents);
  }
  if (holds(line, "Zone") && text::trimBlanks(text::columnsFrom(line, 8)) != expected->zone) {
    return without(expected->zoneContents);
  }
  return {};
}

enum ValueIndex : std::size_t { Latitude, Northing, Longitude, Easting, EllipsoidHeight, Elevation, GeoidHeight };

/// By `ValueIndex`; a line that holds several tags counts as the first of them. Every tag has one "=", at its end.
constexpr std::array<std::string_view, 7> kTags = {"LAT=", "Y=", "LON=", "X=", "ELL HT=", "ORTHO HT=", "GEOID HT="};

/// The place of the line's tag in the table, its size for none.
std::size_t valueIndex(std::string_view line) {
  const std::size_t sign = line.find('=');
  if (sign == std::string_view::npos) return kTags.size();
  const std::string_view label = line.substr(0, sign + 1);
  const bool only = line.find('=', sign + 1) == std::string_view::npos;
  const auto* const found = std::ranges::find_if(kTags, [&](std::string_view tag) {
    if (!only) return holds(line, tag);
    // The first letter tells most of them apart.
    return label.size() >= tag.size() && label[label.size() - tag.size()] == tag.front() && label.ends_with(tag);
  });
  return static_cast<std::size_t>(found - kTags.begin());
}

/// Appends degrees, minutes or seconds. A single digit gets a leading zero, which packing requires: without it the
/// digits after it would shift by one place.
void appendPart(std::string& packed, std::string_view part) {
  part = text::trimBlanks(part);
  const std::size_t whole = std::min(part.find_first_not_of("0123456789"), part.size());
  if (whole == 1) packed += '0';
  packed += part;
}

std::string_view gridText(std::string_view line) {
  return text::trimBlanks(text::columns(line, kValueColumn, 61));
}

std::string_view heightText(std::string_view line) {
  return text::trimBlanks(text::columns(line, kValueColumn, 63));
}

/// The text of the number at the beginning of a height.
void takeHeight(std::string& height, std::string_view line) {
  const std::string_view text = heightText(line);
  const std::size_t length = text::parseLeadingNumber(text).length;
  height = length == 0 ? "0" : text.substr(0, length);
}

/// What a block says of a point, the last value of each kind. A missing one counts as 0.
struct Block {
  std::array<std::uint64_t, kTags.size()> lines{};  ///< by `ValueIndex`; 0 when the block does not have it
  text::AngleReading latitude;
  text::AngleReading longitude;
  std::optional<double> northing = 0.0;  ///< nothing for a text that is not a number
  std::optional<double> easting = 0.0;
  bool textBehindElevation = false;
};

class CoordsLogReader final : public run::PointReader {
 public:
  CoordsLogReader(const run::SourceContext& context, bool numberInDescription)
      : lines_(context.lines),
        counts_(context.counts),
        doubts_(context.doubts),
        message_(context.message),
        listed_(listedSystem(context.settings.SourceProjectionCode)),
        angles_(run::isLatLong(context.settings.SourceProjectionCode)),
        numberInDescription_(numberInDescription) {}

  bool check() override {
    const std::string fault = headerFault();
    if (!fault.empty()) complain(fault);
    return fault.empty();
  }

  run::ReadState read(run::PointRecord& point) override {
    std::string_view line;
    do {
      if (!lines_.next(line)) return run::ReadState::End;
    } while (isBlank(line));
    point.sourceLine = lines_.lineNumber();
    takeName(point, line);
    block_ = {.latitude = noAngle_, .longitude = noAngle_};
    point.ellipsoidHeight = point.geoidHeight = "0";
    if (!takeValues(point)) {
      run::addTo(counts_.noPoint, point.sourceLine);
      return run::ReadState::End;
    }
    if (block_.textBehindElevation) doubts_.raise(run::Doubt::TextBehindNumber);
    return takeCoordinates(point) ? run::ReadState::Point : run::ReadState::Stopped;
  }

 private:
  void complain(std::string text) {
    message_ = {.text = std::move(text), .title = "Invalid Trimble Coords.log file", .icon = run::Icon::Exclamation};
  }

  /// Reads the header with the line of headings and the one below it. What is wrong with it; empty when it is right.
  std::string headerFault() {
    std::string_view line;
    while (lines_.next(line)) {
      if (holds(line, "POINT")) {
        if (lines_.next(line)) return {};
        break;
      }
      if (std::string fault = gps::headerFault(line, listed_); !fault.empty()) return fault;
    }
    return without("valid coordinates");
  }

  void takeName(run::PointRecord& point, std::string_view line) const {
    std::string_view number = text::firstCharacters(line, kNumberLength);
    std::string_view description = text::trimBlanks(line.substr(number.size()));
    if (numberInDescription_) {
      const std::string_view keyed = text::firstCharacters(description, kNumberLength);
      if (text::leadingNumber(keyed) > 0.0) {
        number = keyed;
        description = text::trimBlanks(description.substr(keyed.size()));
      }
    }
    point.pointNumber = text::trimBlanks(number);
    point.description = description;
  }

  /// Reads up to the blank line after the block. False when the file ends before it.
  bool takeValues(run::PointRecord& point) {
    std::string_view line;
    while (lines_.next(line)) {
      if (isBlank(line)) return true;
      takeValue(point, line);
    }
    return false;
  }

  void takeValue(run::PointRecord& point, std::string_view line) {
    const std::size_t i = valueIndex(line);
    if (i == kTags.size()) return;
    if (block_.lines[i] != 0) doubts_.raise(run::Doubt::RunTogether);
    block_.lines[i] = lines_.lineNumber();
    switch (i) {
      case Latitude:
        block_.latitude = angle(line);
        break;
      case Longitude:
        block_.longitude = angle(line);
        break;
      case Northing:
        block_.northing = text::thousandsNumber(gridText(line), scratch_);
        break;
      case Easting:
        block_.easting = text::thousandsNumber(gridText(line), scratch_);
        break;
      case EllipsoidHeight:
        takeHeight(point.ellipsoidHeight, line);
        break;
      case GeoidHeight:
        takeHeight(point.geoidHeight, line);
        break;
      default:
        takeElevation(point, line);
    }
  }

  void takeElevation(run::PointRecord& point, std::string_view line) {
    block_.textBehindElevation = false;
    const text::LeadingNumber number = text::parseLeadingNumber(heightText(line), block_.textBehindElevation);
    point.Elevation = number.value;
    point.elevationAccuracy = text::writtenAccuracy(number);
  }

  text::AngleReading angle(std::string_view line) {
    scratch_.clear();
    appendPart(scratch_, text::columns(line, kValueColumn, 48));
    appendPart(scratch_, text::columns(line, 51, 52));
    appendPart(scratch_, text::columns(line, 55, 63));
    bool textBehind = false;
    text::AngleReading reading = text::unpackSeconds(text::leadingNumber(scratch_, textBehind));
    reading.textBehind = textBehind;
    return reading;
  }

  /// False, with the message, when a northing or easting is not a number.
  bool takeCoordinates(run::PointRecord& point) {
    if (angles_) {
      run::takeAngles(point, block_.latitude, block_.longitude, doubts_);
      return true;
    }
    if (!block_.northing || !block_.easting) {
      complain("Invalid northing or easting in the Trimble Coords.log file.\n" +
               run::messages::lineOfFile(block_.lines[block_.northing ? Easting : Northing], lines_.fileName()));
      return false;
    }
    point.InNorthLat = *block_.northing;
    point.InEastLon = *block_.easting;
    return true;
  }

  text::LineReader& lines_;
  run::RecordCounts& counts_;
  run::DoubtFlags& doubts_;
  run::Message& message_;
  const ListedSystem* const listed_;
  const bool angles_;
  const bool numberInDescription_;
  const text::AngleReading noAngle_ = text::unpackSeconds(0.0);
  Block block_;
  std::string scratch_;
};

}  // namespace

std::unique_ptr<run::PointReader> makeCoordsLogReader(const run::SourceContext& context) {
  return std::make_unique<CoordsLogReader>(context, false);
}

std::unique_ptr<run::PointReader> makeCoordsLogNumberInDescriptionReader(const run::SourceContext& context) {
  return std::make_unique<CoordsLogReader>(context, true);
}

}  // namespace tovak::formats::gps
