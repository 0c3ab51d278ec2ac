#include "formats/delimited/delimited_writer.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "formats/delimited/field_codes.h"
#include "run/projection_code.h"
#include "text/angle.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::delimited {
namespace {

constexpr std::string_view kWayPointsDatumLine = "Datum,North America 1983,GRS 80,0,-1.6E-7,0,0,0";
constexpr std::string_view kWayPointsHead = "WP,DMS,";

void appendPackedBehindPoint(std::string& out, double angle) {
  const text::SplitAngle split = text::splitAngle(angle);
  text::appendDegrees(out, split);
  out += '.';
  text::appendMinutes(out, split);
  text::appendWholeSeconds(out, split);
  text::appendSecondsFraction(out, split);
}

using AngleAppender = void (*)(std::string&, double);
/// By `latLongFormat`.
constexpr std::array<AngleAppender, 4> kAngleAppenders = {text::appendPackedAngle, appendPackedBehindPoint,
                                                          text::appendSpacedAngle, text::appendDecimalDegrees};

AngleAppender angleAppender(std::uint8_t latLongFormat) {
  return latLongFormat < kAngleAppenders.size() ? kAngleAppenders[latLongFormat] : kAngleAppenders[0];
}

/// A field of the layout and what follows it.
struct Item {
  std::int16_t code = kFieldNone;
  char separator = 0;
};

std::vector<Item> layoutItems(const run::DelimitedFormat& format) {
  std::vector<Item> items;
  for (const std::int16_t code : parseFieldCodes(format.fieldCodes)) {
    // A Geopak comment is introduced by ";", whatever the delimiter.
    if (code == kFieldGeopakComment && !items.empty()) items.back().separator = ';';
    items.push_back({code, format.delimiter});
  }
  return items;
}

bool splitsNumbers(char delimiter) {
  return (delimiter >= '0' && delimiter <= '9') || delimiter == '.' || delimiter == '-';
}

/// Degrees, minutes and seconds separated by blanks cannot be told apart when the delimiter is a blank.
bool splitsAngles(const run::DelimitedFormat& format) {
  return format.delimiter == ' ' && angleAppender(format.latLongFormat) == text::appendSpacedAngle;
}

/// Makes the line of a point.
class LineComposer {
 public:
  LineComposer(const run::RunSettings& settings, run::DoubtFlags& doubts)
      : doubts_(doubts),
        delimiter_(settings.targetDelimited.delimiter),
        items_(layoutItems(settings.targetDelimited)),
        angleTarget_(run::isLatLong(settings.TargetProjectionCode)),
        appendAngle_(angleAppender(settings.targetDelimited.latLongFormat)),
        accuracy_(settings.accuracy),
        unitChanges_(settings.source.metres != settings.target.metres),
        numbersSplit_(splitsNumbers(delimiter_) || (angleTarget_ && splitsAngles(settings.targetDelimited))) {}

  /// Valid until the next call.
  const std::string& lineOf(const run::PointRecord& point) {
    line_.clear();
    if (numbersSplit_) doubts_.raise(run::Doubt::ShiftedColumns);
    for (const Item& item : items_) {
      if (item.code == kFieldWayPointsHead) {
        line_ = kWayPointsHead;
        continue;
      }
      appendField(point, item.code);
      if (item.code == kFieldAnythingElse) {
        line_ += ';';
        break;
      }
      line_ += item.separator;
    }
    if (!line_.empty()) line_.pop_back();
    return line_;
  }

 private:
  void appendField(const run::PointRecord& point, std::int16_t code) {
    switch (code) {
      case kFieldY:
        appendCoordinate(point.OutNorthLat, point.elevationAccuracy);
        break;
      case kFieldX:
        appendCoordinate(point.OutEastLon, point.elevationAccuracy);
        break;
      case kFieldElevation:
        appendHeight(point.Elevation, point.elevationAccuracy);
        break;
      case kFieldGeoidHeight:
        appendSourceHeight(point.geoidHeight, point.elevationAccuracy);
        break;
      case kFieldEllipsoidHeight:
        appendSourceHeight(point.ellipsoidHeight, point.elevationAccuracy);
        break;
      case kFieldAnythingElse:
        line_ += point.anythingElse;
        break;
      case kFieldWayPointsTexts:
        appendText(point.attributes[2]);
        line_ += delimiter_;
        appendText(point.attributes[3]);
        break;
      default:
        if (const std::string* const field = textField(point, code)) appendText(*field);
    }
  }

  void appendText(std::string_view text) {
    text = text::trimBlanks(text);
    for (const char c : text) {
      if (c == delimiter_ || c == '"') doubts_.raise(run::Doubt::ShiftedColumns);
    }
    line_ += text;
  }

  void appendCoordinate(double value, text::Accuracy accuracy) {
    if (angleTarget_) {
      appendAngle_(line_, value);
    } else {
      if (accuracy == text::Accuracy::Unit && accuracy_ < accuracy) doubts_.raise(run::Doubt::CoarseCoordinates);
      text::formatPrecision(line_, value, accuracy);
    }
  }

  /// The unit of a height that was carried along is unknown, so it is not scaled.
  void appendSourceHeight(std::string_view text, text::Accuracy accuracy) {
    const double value = text::leadingNumber(text);
    if (unitChanges_ && value != 0.0) doubts_.raise(run::Doubt::UnscaledHeights);
    appendHeight(value, accuracy);
  }

  void appendHeight(double value, text::Accuracy accuracy) {
    if (value != 0.0) text::formatPrecision(line_, value, accuracy);
  }

  run::DoubtFlags& doubts_;
  const char delimiter_;
  const std::vector<Item> items_;
  const bool angleTarget_;
  const AngleAppender appendAngle_;
  const text::Accuracy accuracy_;
  const bool unitChanges_;
  const bool numbersSplit_;  ///< the delimiter occurs inside every number
  std::string line_;
};

class DelimitedWriter final : public run::PointWriter {
 public:
  DelimitedWriter(const run::TargetContext& context, std::optional<std::string> firstLine)
      : lines_(context.lines), firstLine_(std::move(firstLine)), composer_(context.settings, context.doubts) {}

  bool begin() override { return !firstLine_ || lines_.writeLine(*firstLine_); }
  bool write(const run::PointRecord& point) override { return lines_.writeLine(composer_.lineOf(point)); }
  bool end() override { return true; }

 private:
  text::LineWriter& lines_;
  const std::optional<std::string> firstLine_;
  LineComposer composer_;
};

}  // namespace

std::optional<std::string> delimitedHeader(const run::DelimitedFormat& format) {
  if (!format.includeHeader || format.headerLine.empty()) return std::nullopt;
  return format.headerLine.substr(0, format.headerLine.size() - 1);
}

std::string delimitedLine(const run::RunSettings& settings, const run::PointRecord& point) {
  run::DoubtFlags none;
  return LineComposer(settings, none).lineOf(point);
}

void delimitedFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures) {
  figures = {};
  const bool angles = run::isLatLong(settings.TargetProjectionCode);
  const AngleAppender appendAngle = angleAppender(settings.targetDelimited.latLongFormat);
  for (const std::int16_t code : parseFieldCodes(settings.targetDelimited.fieldCodes)) {
    if (code == kFieldAnythingElse) break;
    if (code == kFieldElevation && figures.elevation.empty() && point.Elevation != 0.0) {
      text::formatPrecision(figures.elevation, point.Elevation, point.elevationAccuracy);
    }
    if (code != kFieldY && code != kFieldX) continue;
    std::string& text = code == kFieldY ? figures.northing : figures.easting;
    const double value = code == kFieldY ? point.OutNorthLat : point.OutEastLon;
    text.clear();
    if (angles) {
      appendAngle(text, value);
    } else {
      text::formatPrecision(text, value, point.elevationAccuracy);
    }
  }
}

std::unique_ptr<run::PointWriter> makeDelimitedWriter(const run::TargetContext& context) {
  return std::make_unique<DelimitedWriter>(context, delimitedHeader(context.settings.targetDelimited));
}

std::unique_ptr<run::PointWriter> makeWayPointsPlusWriter(const run::TargetContext& context) {
  return std::make_unique<DelimitedWriter>(context, std::string(kWayPointsDatumLine));
}

}  // namespace tovak::formats::delimited
