#include "formats/exchange/landxml_writer.h"

#include <optional>
#include <string>
#include <string_view>

#include "formats/exchange/epsg_codes.h"
#include "formats/exchange/escaped_text.h"
#include "formats/target_figures.h"
#include "run/identification.h"
#include "run/labels.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::exchange {
namespace {

constexpr std::string_view kMetric =
    R"(<Units><Metric areaUnit="squareMeter" linearUnit="meter" volumeUnit="cubicMeter" temperatureUnit="celsius" pressureUnit="milliBars"/></Units>)";
constexpr std::string_view kImperial =
    R"(<Units><Imperial areaUnit="squareFoot" linearUnit="USSurveyFoot" volumeUnit="cubicFeet" temperatureUnit="fahrenheit" pressureUnit="inHG"/></Units>)";

class LandXmlWriter final : public run::PointWriter {
 public:
  explicit LandXmlWriter(const run::TargetContext& context)
      : lines_(context.lines),
        settings_(context.settings),
        doubts_(context.doubts),
        system_(context.settings.target.displayName.empty() ? context.targetSystem
                                                            : context.settings.target.displayName),
        today_(context.today) {}

  bool begin() override {
    return lines_.writeLine(R"(<?xml version="1.0" encoding="UTF-8"?>)") && beginRoot() &&
           lines_.writeLine(settings_.target.metres ? kMetric : kImperial) && writeSystem() &&
           lines_.writeLine("<CgPoints>");
  }

  bool write(const run::PointRecord& point) override {
    line_ = "<CgPoint";
    appendAttribute(" name=\"", point.pointNumber);
    appendAttribute(" desc=\"", point.description);
    appendAttribute(" code=\"", point.featureCode);
    line_ += R"( pntSurv="reference">)";
    text::formatPrecision(line_, point.OutNorthLat, settings_.accuracy);
    line_ += ' ';
    text::formatPrecision(line_, point.OutEastLon, settings_.accuracy);
    if (hasElevation(point)) {
      line_ += ' ';
      text::formatPrecision(line_, point.Elevation, settings_.accuracy);
    }
    line_ += "</CgPoint>";
    return lines_.writeLine(line_);
  }

  bool end() override { return lines_.writeLine("</CgPoints>") && lines_.writeLine("</LandXML>"); }

 private:
  bool beginRoot() {
    line_ = R"(<LandXML xmlns="http://www.landxml.org/schema/LandXML-1.2" version="1.2" date=")";
    text::appendIsoDate(line_, today_);
    line_ += R"(" time="00:00:00" language="English" readOnly="false">)";
    return lines_.writeLine(line_);
  }

  bool writeSystem() {
    line_ = "<CoordinateSystem";
    appendAttribute(" name=\"", system_);
    appendAttribute(" desc=\"", run::identificationLine(settings_));
    if (const std::optional<int> number = epsgCode(settings_)) {
      line_ += " epsgCode=\"";
      text::appendWhole(line_, *number);
      line_ += '"';
    }
    appendAttribute(" horizontalDatum=\"", run::datumLabel(settings_, settings_.TargetProjectionCode));
    line_ += "/>";
    return lines_.writeLine(line_);
  }

  void appendAttribute(std::string_view name, std::string_view text) {
    if (text::unlessBlank(text).empty()) return;
    line_ += name;
    if (!appendXml(line_, text)) doubts_.raise(run::Doubt::ReplacedCharacters);
    line_ += '"';
  }

  text::LineWriter& lines_;
  const run::RunSettings& settings_;
  run::DoubtFlags& doubts_;
  const std::string system_;
  const text::Date today_;
  std::string line_;
};

}  // namespace

std::unique_ptr<run::PointWriter> makeLandXmlWriter(const run::TargetContext& context) {
  return std::make_unique<LandXmlWriter>(context);
}

}  // namespace tovak::formats::exchange
