/// An engine that changes nothing and keeps no account of its calls.
#pragma once

#include "support/scripted_engine.h"

namespace tovak::tests {

class UnchangingEngine final : public ScriptedEngine {
 public:
  std::int16_t TovakVert(double& InNorthLat, double& InEastLon, double&, const std::string&, double& OutNorthLat,
                         double& OutEastLon, double&, const std::string&, std::string&, std::string_view) override {
    OutNorthLat = InNorthLat;
    OutEastLon = InEastLon;
    return 0;
  }
};

}  // namespace tovak::tests
