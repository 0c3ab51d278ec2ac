#include "formats/delimited/delimited_reader.h"

#include <cstddef>
#include <string>

#include "formats/delimited/delimited_line.h"
#include "formats/delimited/field_codes.h"
#include "run/projection_code.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::delimited {
namespace {

class DelimitedReader final : public run::PointReader {
 public:
  explicit DelimitedReader(const run::SourceContext& context)
      : lines_(context.lines),
        counts_(context.counts),
        doubts_(context.doubts),
        fields_(context.settings.sourceDelimited),
        latLong_(run::isLatLong(context.settings.SourceProjectionCode)),
        form_(context.settings.latLongForm) {}

  bool check() override { return true; }

  run::ReadState read(run::PointRecord& point) override {
    std::string_view line;
    while (lines_.next(line)) {
      if (!fields_.start(line)) {
        passOver(line, counts_.withoutDelimiter);
        continue;
      }
      if (takePoint(point)) {
        point.sourceLine = lines_.lineNumber();
        return run::ReadState::Point;
      }
      passOver(line, counts_.zeroCoordinate);
      run::resetPoint(point);
      doubts_.clear();
    }
    return run::ReadState::End;
  }

 private:
  void passOver(std::string_view line, run::Tally& tally) {
    const bool comment = !line.empty() && line.front() == '$';
    run::addTo(comment ? counts_.comment : tally, lines_.lineNumber());
  }

  /// Takes the fields of the line; false when a coordinate is zero.
  bool takePoint(run::PointRecord& point) {
    latitude_ = longitude_ = {};
    textBehind_ = false;
    DelimitedLine::Field field;
    while (fields_.next(field)) store(point, field.code, field.text);
    if (latLong_) {
      if (isZero(latitude_) || isZero(longitude_)) return false;
      run::takeAngles(point, latitude_, longitude_, doubts_);
    } else if (point.InNorthLat == 0.0 || point.InEastLon == 0.0) {
      return false;
    }
    if (textBehind_) doubts_.raise(run::Doubt::TextBehindNumber);
    return true;
  }

  static bool isZero(const text::AngleReading& angle) {
    return angle.degrees == 0.0 && angle.fault == text::AngleFault::None;
  }

  void store(run::PointRecord& point, std::int16_t code, std::string_view field) {
    switch (code) {
      case kFieldY:
        takeCoordinate(field, point.InNorthLat, latitude_, text::AngleAxis::Latitude);
        break;
      case kFieldX:
        takeCoordinate(field, point.InEastLon, longitude_, text::AngleAxis::Longitude);
        break;
      case kFieldElevation:
        takeElevation(point, text::parseLeadingNumber(field, textBehind_));
        break;
      case kFieldComment:
      case kFieldGeopakComment:
        run::addComment(point, cleanTextField(field));
        break;
      case kFieldName:
      case kFieldNumber:
        *textField(point, code) = cleanTextField(field);
        break;
      case kFieldAnythingElse:
        point.anythingElse = field;
        break;
      default:
        if (std::string* const verbatim = textField(point, code)) *verbatim = field;
    }
  }

  static void takeElevation(run::PointRecord& point, const text::LeadingNumber& number) {
    point.Elevation = number.value;
    point.elevationAccuracy = text::writtenAccuracy(number);
  }

  void takeCoordinate(std::string_view field, double& length, text::AngleReading& angle, text::AngleAxis axis) {
    if (latLong_) {
      angle = text::readAngle(field, form_, axis, scratch_);
    } else {
      length = text::leadingNumber(field, textBehind_);
    }
  }

  text::LineReader& lines_;
  run::RecordCounts& counts_;
  run::DoubtFlags& doubts_;
  DelimitedLine fields_;
  const bool latLong_;
  const text::AngleForm form_;
  text::AngleReading latitude_;
  text::AngleReading longitude_;
  bool textBehind_ = false;
  std::string scratch_;
};

}  // namespace

std::unique_ptr<run::PointReader> makeDelimitedReader(const run::SourceContext& context) {
  return std::make_unique<DelimitedReader>(context);
}

std::string_view cleanTextField(std::string_view text) {
  const std::size_t quote = text.find('"');
  if (quote == std::string_view::npos) return text::trimBlanks(text);
  text.remove_prefix(quote + 1);
  return text.substr(0, text.find('"'));
}

}  // namespace tovak::formats::delimited
