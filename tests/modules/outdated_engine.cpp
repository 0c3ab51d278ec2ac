// An engine with an older interface.
#include "support/scripted_engine.h"

namespace {

class OutdatedEngine final : public tovak::tests::ScriptedEngine {
 public:
  double GetVersion() override { return 102.9; }
};

}  // namespace

extern "C" __attribute__((visibility("default"))) tovak::run::ConversionEngine* createTovakXEngine(std::string&) {
  return new OutdatedEngine;
}
