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
  return text::unlessBlank(line).empty();
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

/// Appends degrees, minutes or seconds. A single digit gets a leading zero, which packing requires: without it the
/// digits after it would shift by one place.
void appendPart(std::string& packed, std::string_view part) {
  part = text::trimBlanks(part);
  const std::size_t whole = std::min(part.find_first_not_of("0123456789"), part.size());
  if (whole == 1) packed += '0';
  packed += part;
}

void takePackedAngle(std::string& packed, std::string_view line) {
  packed.clear();
  appendPart(packed, text::columns(line, kValueColumn, 48));
  appendPart(packed, text::columns(line, 51, 52));
  appendPart(packed, text::columns(line, 55, 63));
}

template <std::size_t lastColumn>
void takeText(std::string& text, std::string_view line) {
  text = text::trimBlanks(text::columns(line, kValueColumn, lastColumn));
}

struct ValueLine {
  std::string_view tag;
  void (*take)(std::string&, std::string_view line);
};

/// By `ValueIndex`; a line that holds several tags counts as the first of them. Every tag has one "=", at its end.
constexpr std::array<ValueLine, 7> kValueLines = {{
    {"LAT=", takePackedAngle},
    {"Y=", takeText<61>},
    {"LON=", takePackedAngle},
    {"X=", takeText<61>},
    {"ELL HT=", takeText<63>},
    {"ORTHO HT=", takeText<63>},
    {"GEOID HT=", takeText<63>},
}};

/// The place of the line's tag in the table, its size for none.
std::size_t valueIndex(std::string_view line) {
  const std::size_t sign = line.find('=');
  if (sign == std::string_view::npos) return kValueLines.size();
  const std::string_view label = line.substr(0, sign + 1);
  const char letter = sign == 0 ? '\0' : line[sign - 1];
  const bool only = line.find('=', sign + 1) == std::string_view::npos;
  const auto* const found = std::ranges::find_if(kValueLines, [&](const ValueLine& value) {
    if (!only) return holds(line, value.tag);
    // The letter in front of the sign tells most of them apart.
    return value.tag[value.tag.size() - 2] == letter && label.ends_with(value.tag);
  });
  return static_cast<std::size_t>(found - kValueLines.begin());
}

struct Value {
  std::string text;
  std::uint64_t line = 0;  ///< 0 when the block does not have it
};

/// The text of the number at the beginning of a text.
void takeHeight(std::string& height, const Value& value) {
  const std::size_t length = text::parseLeadingNumber(value.text).length;
  height = length == 0 ? "0" : std::string_view(value.text).substr(0, length);
}

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
    for (Value& value : values_) {
      value.text = "0";
      value.line = 0;
    }
    if (!takeValues()) {
      run::addTo(counts_.noPoint, point.sourceLine);
      return run::ReadState::End;
    }
    takeHeights(point);
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
  bool takeValues() {
    std::string_view line;
    while (lines_.next(line)) {
      if (isBlank(line)) return true;
      takeValue(line);
    }
    return false;
  }

  void takeValue(std::string_view line) {
    const std::size_t i = valueIndex(line);
    if (i == kValueLines.size()) return;
    if (values_[i].line != 0) doubts_.raise(run::Doubt::RunTogether);
    values_[i].line = lines_.lineNumber();
    kValueLines[i].take(values_[i].text, line);
  }

  void takeHeights(run::PointRecord& point) {
    const Value& elevation = values_[Elevation];
    bool textBehind = false;
    const text::LeadingNumber number = text::parseLeadingNumber(elevation.text, textBehind);
    point.Elevation = number.value;
    if (textBehind) doubts_.raise(run::Doubt::TextBehindNumber);
    // A missing elevation says nothing about precision.
    if (elevation.line != 0) point.elevationAccuracy = text::writtenAccuracy(number);
    takeHeight(point.ellipsoidHeight, values_[EllipsoidHeight]);
    takeHeight(point.geoidHeight, values_[GeoidHeight]);
  }

  /// False, with the message, when a northing or easting is not a number.
  bool takeCoordinates(run::PointRecord& point) {
    if (angles_) {
      run::takeAngles(point, angle(values_[Latitude]), angle(values_[Longitude]), doubts_);
      return true;
    }
    return takeGrid(point.InNorthLat, values_[Northing]) && takeGrid(point.InEastLon, values_[Easting]);
  }

  static text::AngleReading angle(const Value& value) {
    bool textBehind = false;
    text::AngleReading reading = text::unpackSeconds(text::leadingNumber(value.text, textBehind));
    reading.textBehind = textBehind;
    return reading;
  }

  bool takeGrid(double& coordinate, const Value& value) {
    const std::optional<double> number = text::thousandsNumber(value.text, scratch_);
    if (!number) {
      complain("Invalid northing or easting in the Trimble Coords.log file.\n" +
               run::messages::lineOfFile(value.line, lines_.fileName()));
      return false;
    }
    coordinate = *number;
    return true;
  }

  text::LineReader& lines_;
  run::RecordCounts& counts_;
  run::DoubtFlags& doubts_;
  run::Message& message_;
  const ListedSystem* const listed_;
  const bool angles_;
  const bool numberInDescription_;
  std::array<Value, kValueLines.size()> values_;
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
