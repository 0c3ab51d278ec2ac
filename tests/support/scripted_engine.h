/// An engine without geodesy: it adds 1 to northing and 2 to easting, and refuses what the test tells it to.
#pragma once

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

  std::vector<Call> calls;
  std::map<double, std::int16_t> refusals;  ///< by source northing
  std::string project = "None Selected";

  double GetVersion() override { return 103; }
  std::int16_t TovakVert(double& InNorthLat, double& InEastLon, double& Elevation, const std::string& SourceProjection,
                         double& OutNorthLat, double& OutEastLon, double& ElevationOut,
                         const std::string& TargetProjection, std::string& OutInfo,
                         std::string_view LatLongForm) override {
    calls.push_back({InNorthLat, InEastLon, SourceProjection, TargetProjection, std::string(LatLongForm)});
    if (const auto refusal = refusals.find(InNorthLat); refusal != refusals.end()) return refusal->second;
    OutNorthLat = InNorthLat + 1;
    OutEastLon = InEastLon + 2;
    ElevationOut = Elevation + 3;
    OutInfo = "info";
    return 0;
  }
  std::string ErrorText(std::int16_t code) override { return "refused with " + std::to_string(code); }
  std::string GetProjectionData(std::int16_t code) override { return code == -263 ? project : std::string(); }
  std::int16_t GetProjectionFromText(const std::string&, std::string&) override { return run::kUnknownCounty; }
};

}  // namespace tovak::tests
