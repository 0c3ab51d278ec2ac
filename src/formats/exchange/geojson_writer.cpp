#include "formats/exchange/geojson_writer.h"

#include <string>
#include <string_view>

#include "formats/exchange/escaped_text.h"
#include "formats/target_figures.h"
#include "run/identification.h"
#include "run/projection_code.h"
#include "text/angle.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::exchange {
namespace {

constexpr int kLengthDecimals = 3;
constexpr int kAngleDecimals = 9;

/// Names and decimals of the coordinates of the source.
struct SourceProperties {
  std::string_view north = R"(,"northing":)";
  std::string_view east = R"(,"easting":)";
  std::string_view unit = "US survey foot";
  int decimals = kLengthDecimals;
};

SourceProperties sourceProperties(const run::RunSettings& settings) {
  if (run::isLatLong(settings.SourceProjectionCode))
    return {R"(,"latitude":)", R"(,"longitude":)", "degree", kAngleDecimals};
  SourceProperties properties;
  if (settings.source.metres) properties.unit = "metre";
  return properties;
}

class GeoJsonWriter final : public run::PointWriter {
 public:
  explicit GeoJsonWriter(const run::TargetContext& context)
      : lines_(context.lines),
        settings_(context.settings),
        doubts_(context.doubts),
        source_(sourceProperties(context.settings)),
        system_(R"(,"system":")") {
    appendJson(system_, context.sourceSystem);
    system_ += R"(","unit":")";
    system_ += source_.unit;
    system_ += '"';
  }

  bool begin() override {
    line_ = R"({"type":"FeatureCollection","description":")";
    appendJson(line_, run::identificationLine(settings_));
    line_ += R"(","features":[)";
    return lines_.writeLine(line_);
  }

  bool write(const run::PointRecord& point) override {
    line_ = first_ ? " " : ",";
    first_ = false;
    line_ += R"({"type":"Feature","geometry":{"type":"Point","coordinates":[)";
    text::appendFineDegrees(line_, point.OutEastLon);
    line_ += ',';
    text::appendFineDegrees(line_, point.OutNorthLat);
    if (hasElevation(point)) {
      line_ += ',';
      text::formatPrecision(line_, point.Elevation, settings_.accuracy);
    }
    line_ += R"(]},"properties":{)";
    appendString(R"("number":")", point.pointNumber);
    appendString(R"(,"description":")", point.description);
    appendString(R"(,"featureCode":")", point.featureCode);
    appendSource(point);
    line_ += "}}";
    return lines_.writeLine(line_);
  }

  bool end() override { return lines_.writeLine("]}"); }

 private:
  void appendString(std::string_view name, std::string_view text) {
    line_ += name;
    if (!appendJson(line_, text)) doubts_.raise(run::Doubt::ReplacedCharacters);
    line_ += '"';
  }

  void appendSource(const run::PointRecord& point) {
    line_ += source_.north;
    text::appendFixed(line_, point.InNorthLat, source_.decimals);
    line_ += source_.east;
    text::appendFixed(line_, point.InEastLon, source_.decimals);
    line_ += system_;
    std::string_view info = point.sourceInfo;
    const std::string_view convergence = text::takeField(info, ' ');
    const std::string_view scaleFactor = text::takeField(info, ' ');
    if (scaleFactor.empty()) return;
    line_ += R"(,"convergence":")";
    line_ += convergence;
    line_ += R"(","scaleFactor":)";
    line_ += scaleFactor;
  }

  text::LineWriter& lines_;
  const run::RunSettings& settings_;
  run::DoubtFlags& doubts_;
  const SourceProperties source_;
  std::string system_;  ///< the properties that are the same for every point
  bool first_ = true;
  std::string line_;
};

}  // namespace

std::unique_ptr<run::PointWriter> makeGeoJsonWriter(const run::TargetContext& context) {
  return std::make_unique<GeoJsonWriter>(context);
}

}  // namespace tovak::formats::exchange
