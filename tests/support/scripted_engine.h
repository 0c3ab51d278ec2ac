/// An engine without geodesy; a test can give it other answers where it needs them.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "run/conversion_engine.h"

namespace tovak::tests {

class ScriptedEngine : public run::ConversionEngine {
 public:
  struct Call {
    double northing;
    double easting;
    std::string source;
    std::string target;
    std::string form;
  };
  /// A point that is being converted.
  struct Point {
    double& northing;
    double& easting;
    double& elevation;
    const std::string& source;
    const std::string& target;
    double& outNorthing;
    double& outEasting;
    std::string& info;
  };
  using Arithmetic = std::function<std::int16_t(const Point&)>;

  /// Adds 1 to the northing, 2 to the easting and 3 to the elevation.
  static std::int16_t add(const Point& point) {
    point.outNorthing = point.northing + 1;
    point.outEasting = point.easting + 2;
    point.elevation += 3;
    point.info = "info";
    return 0;
  }
  static std::int16_t leave(const Point& point) {
    point.outNorthing = point.northing;
    point.outEasting = point.easting;
    return 0;
  }

  Arithmetic arithmetic = add;
  bool keepsCalls = true;
  std::vector<Call> calls;
  std::map<double, std::int16_t> refusals;  ///< by source northing
  std::map<std::int16_t, std::string> systems;
  std::string project = "None Selected";
  std::function<std::int16_t(const std::string&, std::string&)> projectionFromText =
      [](const std::string&, std::string&) { return run::kUnknownCounty; };
  bool resultTexts = true;  ///< whether they were asked for last

  double GetVersion() override { return 103; }
  std::int16_t TovakVert(double& InNorthLat, double& InEastLon, double& Elevation, const std::string& SourceProjection,
                         double& OutNorthLat, double& OutEastLon, double&, const std::string& TargetProjection,
                         std::string& OutInfo, std::string_view LatLongForm) override {
    if (keepsCalls)
      calls.push_back({InNorthLat, InEastLon, SourceProjection, TargetProjection, std::string(LatLongForm)});
    if (const auto refusal = refusals.find(InNorthLat); refusal != refusals.end()) return refusal->second;
    const std::int16_t code = arithmetic(
        {InNorthLat, InEastLon, Elevation, SourceProjection, TargetProjection, OutNorthLat, OutEastLon, OutInfo});
    if (!resultTexts) OutInfo.clear();
    return code;
  }
  std::string ErrorText(std::int16_t code) override { return "refused with " + std::to_string(code); }
  std::string GetProjectionData(std::int16_t code) override { return code == -263 ? project : systems[code]; }
  std::int16_t GetProjectionFromText(const std::string& text, std::string& filled) override {
    return projectionFromText(text, filled);
  }
  void wantResultTexts(bool wanted) override { resultTexts = wanted; }
};

}  // namespace tovak::tests
