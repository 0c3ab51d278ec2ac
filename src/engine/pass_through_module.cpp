// The module TovakXPassThrough: a substitute that computes nothing, for trying a run without geodesy.
#include <new>
#include <string>
#include <string_view>

#include "run/conversion_engine.h"

namespace tovak::engine {
namespace {

class TovakXPassThrough final : public run::ConversionEngine {
 public:
  double GetVersion() override { return run::kOldestEngineVersion; }

  std::int16_t TovakVert(double& InNorthLat, double& InEastLon, double& Elevation,
                         const std::string& /*SourceProjection*/, double& OutNorthLat, double& OutEastLon,
                         double& ElevationOut, const std::string& /*TargetProjection*/, std::string& OutInfo,
                         std::string_view /*LatLongForm*/) override {
    OutNorthLat = InNorthLat;
    OutEastLon = InEastLon;
    ElevationOut = Elevation;
    OutInfo.clear();
    return 0;
  }

  std::string ErrorText(std::int16_t /*code*/) override { return "The point could not be converted."; }

  std::string GetProjectionData(std::int16_t /*code*/) override { return "None Selected"; }

  std::int16_t GetProjectionFromText(const std::string& /*text*/, std::string& filled) override {
    filled.clear();
    return run::kUnknownCounty;
  }
};

}  // namespace
}  // namespace tovak::engine

extern "C" __attribute__((visibility("default"))) tovak::run::ConversionEngine* createTovakXEngine(
    std::string& /*reason*/) {
  return new (std::nothrow) tovak::engine::TovakXPassThrough;
}
