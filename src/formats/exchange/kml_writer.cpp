#include "formats/exchange/kml_writer.h"

#include <string>
#include <string_view>

#include "formats/exchange/escaped_text.h"
#include "formats/target_figures.h"
#include "run/identification.h"
#include "text/angle.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::exchange {
namespace {

class KmlWriter final : public run::PointWriter {
 public:
  explicit KmlWriter(const run::TargetContext& context)
      : lines_(context.lines), settings_(context.settings), doubts_(context.doubts) {}

  bool begin() override {
    line_ = "<description>";
    appendXml(line_, run::identificationLine(settings_));
    line_ += "</description>";
    return lines_.writeLine(R"(<?xml version="1.0" encoding="UTF-8"?>)") &&
           lines_.writeLine(R"(<kml xmlns="http://www.opengis.net/kml/2.2">)") && lines_.writeLine("<Document>") &&
           lines_.writeLine(line_);
  }

  bool write(const run::PointRecord& point) override {
    line_ = "<Placemark>";
    appendElement("<name>", point.pointNumber, "</name>");
    appendElement("<description>", point.description, "</description>");
    const bool high = hasElevation(point);
    line_ += high ? "<Point><altitudeMode>absolute</altitudeMode><coordinates>"
                  : "<Point><altitudeMode>clampToGround</altitudeMode><coordinates>";
    text::appendFineDegrees(line_, point.OutEastLon);
    line_ += ',';
    text::appendFineDegrees(line_, point.OutNorthLat);
    if (high) {
      line_ += ',';
      text::formatPrecision(line_, point.Elevation, settings_.accuracy);
    }
    line_ += "</coordinates></Point></Placemark>";
    return lines_.writeLine(line_);
  }

  bool end() override { return lines_.writeLine("</Document>") && lines_.writeLine("</kml>"); }

 private:
  void appendElement(std::string_view opening, std::string_view text, std::string_view closing) {
    if (text::unlessBlank(text).empty()) return;
    line_ += opening;
    if (!appendXml(line_, text)) doubts_.raise(run::Doubt::ReplacedCharacters);
    line_ += closing;
  }

  text::LineWriter& lines_;
  const run::RunSettings& settings_;
  run::DoubtFlags& doubts_;
  std::string line_;
};

}  // namespace

std::unique_ptr<run::PointWriter> makeKmlWriter(const run::TargetContext& context) {
  return std::make_unique<KmlWriter>(context);
}

}  // namespace tovak::formats::exchange
