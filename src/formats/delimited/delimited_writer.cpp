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

namespace tovak::formats {
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

/// Makes the line of a point.
class LineComposer {
 public:
  explicit LineComposer(const run::RunSettings& settings)
      : delimiter_(settings.targetDelimited.delimiter),
        items_(layoutItems(settings.targetDelimited)),
        angleTarget_(run::isLatLong(settings.TargetProjectionCode)),
        appendAngle_(angleAppender(settings.targetDelimited.latLongFormat)) {}

  /// Holds until the next call.
  const std::string& lineOf(const run::PointRecord& point) {
    line_.clear();
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
        appendCoordinate(point.OutNorthLat, point.elevationDecimals);
        break;
      case kFieldX:
        appendCoordinate(point.OutEastLon, point.elevationDecimals);
        break;
      case kFieldElevation:
        appendHeight(point.Elevation, point.elevationDecimals);
        break;
      case kFieldGeoidHeight:
        appendHeight(text::leadingNumber(point.geoidHeight), point.elevationDecimals);
        break;
      case kFieldEllipsoidHeight:
        appendHeight(text::leadingNumber(point.ellipsoidHeight), point.elevationDecimals);
        break;
      case kFieldAnythingElse:
        line_ += point.anythingElse;
        break;
      case kFieldWayPointsTexts:
        line_ += text::trimBlanks(point.attributes[2]);
        line_ += delimiter_;
        line_ += text::trimBlanks(point.attributes[3]);
        break;
      default:
        if (const std::string* const field = textField(point, code)) line_ += text::trimBlanks(*field);
    }
  }

  void appendCoordinate(double value, int precision) {
    if (angleTarget_) {
      appendAngle_(line_, value);
    } else {
      text::appendPrecision(line_, value, precision);
    }
  }

  void appendHeight(double value, int precision) {
    if (value != 0.0) text::appendPrecision(line_, value, precision);
  }

  const char delimiter_;
  const std::vector<Item> items_;
  const bool angleTarget_;
  const AngleAppender appendAngle_;
  std::string line_;
};

class DelimitedWriter final : public run::PointWriter {
 public:
  DelimitedWriter(const run::TargetContext& context, std::optional<std::string> firstLine)
      : lines_(context.lines), firstLine_(std::move(firstLine)), composer_(context.settings) {}

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
  return LineComposer(settings).lineOf(point);
}

std::unique_ptr<run::PointWriter> makeDelimitedWriter(const run::TargetContext& context) {
  return std::make_unique<DelimitedWriter>(context, delimitedHeader(context.settings.targetDelimited));
}

std::unique_ptr<run::PointWriter> makeWayPointsPlusWriter(const run::TargetContext& context) {
  return std::make_unique<DelimitedWriter>(context, std::string(kWayPointsDatumLine));
}

}  // namespace tovak::formats
