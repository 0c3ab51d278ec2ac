#include "formats/delimited/delimited_reader.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "formats/delimited/field_codes.h"
#include "run/projection_code.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats {
namespace {

/// What introduces a Geopak comment, whatever the delimiter.
constexpr char kGeopakDelimiter = ';';

class DelimitedReader final : public run::PointReader {
 public:
  explicit DelimitedReader(const run::SourceContext& context)
      : lines_(context.lines),
        counts_(context.counts),
        codes_(parseFieldCodes(context.settings.sourceDelimited.fieldCodes)),
        delimiter_(context.settings.sourceDelimited.delimiter),
        // Any "25" in the list counts, the middle of 125 included.
        geopakComment_(delimiter_ != kGeopakDelimiter &&
                       context.settings.sourceDelimited.fieldCodes.find("25") != std::string::npos),
        anglesMayHoldBlanks_(run::isLatLong(context.settings.SourceProjectionCode)) {}

  bool check() override { return true; }

  run::ReadState read(run::PointRecord& point) override {
    std::string_view line;
    while (lines_.next(line)) {
      const std::size_t firstDelimiter = line.find(delimiter_);
      if (firstDelimiter == std::string_view::npos) {
        passOver(line, counts_.withoutDelimiter);
        continue;
      }
      takeFields(point, line, firstDelimiter);
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

  void takeFields(run::PointRecord& point, std::string_view rest, std::size_t fieldEnd) {
    char delimiter = delimiter_;
    for (const std::int16_t code : codes_) {
      if (code == kFieldAnythingElse) {
        point.anythingElse = rest;
        return;
      }
      store(point, code, rest.substr(0, fieldEnd));
      rest.remove_prefix(std::min(fieldEnd + 1, rest.size()));
      fieldEnd = rest.find(delimiter);
      if (fieldEnd == std::string_view::npos && geopakComment_) {
        delimiter = kGeopakDelimiter;
        fieldEnd = rest.find(delimiter);
      }
      fieldEnd = std::min(fieldEnd, rest.size());
    }
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
      default:
        if (std::string* const verbatim = textField(point, code)) *verbatim = field;
    }
  }

  double coordinate(std::string_view field) {
    return text::leadingNumber(anglesMayHoldBlanks_ ? text::withoutBlanks(field, scratch_) : field);
  }

  text::LineReader& lines_;
  run::RecordCounts& counts_;
  const std::vector<std::int16_t> codes_;
  const char delimiter_;
  const bool geopakComment_;
  const bool anglesMayHoldBlanks_;
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
