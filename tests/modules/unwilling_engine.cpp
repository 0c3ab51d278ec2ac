// A module whose engine cannot start.
#include "run/conversion_engine.h"

extern "C" __attribute__((visibility("default"))) tovak::run::ConversionEngine* createTovakXEngine(
    std::string& reason) {
  reason = "no database";
  return nullptr;
}
