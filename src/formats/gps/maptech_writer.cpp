#include "formats/gps/maptech_writer.h"

#include <string>
#include <string_view>

#include "text/angle.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::gps {
namespace {

constexpr std::string_view kSeparator = ", ";

void appendQuoted(std::string& line, std::string_view text) {
  line += '"';
  for (const char c : text::trimBlanks(text)) {
    if (c != '"') line += c == ',' ? ' ' : c;
  }
  line += '"';
}

class MaptechWriter final : public run::PointWriter {
 public:
  explicit MaptechWriter(const run::TargetContext& context)
      : lines_(context.lines), symbology_(context.settings.options.maptech.color) {
    symbology_ += kSeparator;
    text::appendWhole(symbology_, context.settings.options.maptech.symbol);
  }

  bool begin() override { return true; }

  bool write(const run::PointRecord& point) override {
    line_.clear();
    for (const double angle : {point.OutNorthLat, point.OutEastLon}) {
      text::appendDecimalDegrees(line_, angle);
      line_ += kSeparator;
    }
    for (const std::string* const text : {&point.description, &point.pointNumber, &point.comment}) {
      appendQuoted(line_, *text);
      line_ += kSeparator;
    }
    line_ += symbology_;
    return lines_.writeLine(line_);
  }

  bool end() override { return true; }

 private:
  text::LineWriter& lines_;
  std::string symbology_;
  std::string line_;
};

}  // namespace

std::unique_ptr<run::PointWriter> makeMaptechWriter(const run::TargetContext& context) {
  return std::make_unique<MaptechWriter>(context);
}

}  // namespace tovak::formats::gps
