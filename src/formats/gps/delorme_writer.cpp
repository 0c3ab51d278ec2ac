#include "formats/gps/delorme_writer.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "text/angle.h"
#include "text/strings.h"

namespace tovak::formats::gps {
namespace {

void appendWithoutCommas(std::string& line, std::string_view text) {
  std::ranges::replace_copy(text, std::back_inserter(line), ',', ' ');
}

class DelormeWriter final : public run::PointWriter {
 public:
  explicit DelormeWriter(const run::TargetContext& context) : lines_(context.lines), symbol_(",") {
    appendWithoutCommas(symbol_, context.settings.options.delorme.symbol);
  }

  bool begin() override { return lines_.writeLine("Begin Symbol"); }

  bool write(const run::PointRecord& point) override {
    line_.clear();
    text::appendDecimalDegrees(line_, point.OutNorthLat);
    line_ += ',';
    text::appendDecimalDegrees(line_, point.OutEastLon);
    line_ += ',';
    const std::string_view description = text::trimBlanks(point.description);
    appendWithoutCommas(line_, description.empty() ? text::trimBlanks(point.pointNumber) : description);
    line_ += symbol_;
    return lines_.writeLine(line_);
  }

  bool end() override { return lines_.writeLine("End"); }

 private:
  text::LineWriter& lines_;
  std::string symbol_;  ///< with the comma before it
  std::string line_;
};

}  // namespace

std::unique_ptr<run::PointWriter> makeDelormeWriter(const run::TargetContext& context) {
  return std::make_unique<DelormeWriter>(context);
}

}  // namespace tovak::formats::gps
