#include "formats/delimited/delimited_reader.h"

#include <cstddef>
#include <string>

#include "formats/delimited/delimited_line.h"
#include "formats/delimited/field_codes.h"
#include "run/projection_code.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats {
namespace {

class DelimitedReader final : public run::PointReader {
 public:
  explicit DelimitedReader(const run::SourceContext& context)
      : lines_(context.lines),
        counts_(context.counts),
        fields_(context.settings.sourceDelimited),
        latLong_(run::isLatLong(context.settings.SourceProjectionCode)) {}

  bool check() override { return true; }

  run::ReadState read(run::PointRecord& point) override {
    std::string_view line;
    while (lines_.next(line)) {
      if (!fields_.start(line)) {
        passOver(line, counts_.withoutDelimiter);
        continue;
      }
      DelimitedLine::Field field;
      while (fields_.next(field)) store(point, field.code, field.text);
      if (point.InNorthLat != 0.0 && point.InEastLon != 0.0) {
        point.sourceLine = lines_.lineNumber();
        return run::ReadState::Point;
      }
      passOver(line, counts_.zeroCoordinate);
      run::resetPoint(point);
    }
    return run::ReadState::End;
  }

 private:
  void passOver(std::string_view line, run::Tally& tally) {
    const bool comment = !line.empty() && line.front() == '$';
    run::addTo(comment ? counts_.comment : tally, lines_.lineNumber());
  }

  void store(run::PointRecord& point, std::int16_t code, std::string_view field) {
    switch (code) {
      case kFieldY:
        point.InNorthLat = coordinate(field);
        break;
      case kFieldX:
        point.InEastLon = coordinate(field);
        break;
      case kFieldElevation:
        point.Elevation = text::leadingNumber(field);
        point.elevationDecimals = text::missingDecimals(field);
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

  double coordinate(std::string_view field) { return coordinateValue(field, latLong_, scratch_); }

  text::LineReader& lines_;
  run::RecordCounts& counts_;
  DelimitedLine fields_;
  const bool latLong_;
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

}  // namespace tovak::formats
