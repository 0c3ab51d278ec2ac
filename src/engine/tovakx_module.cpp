// The module TovakX: the conversion engine on PROJ behind the one function that a module exports.
#include <exception>
#include <string>

#include "engine/tovakx.h"
#include "run/conversion_engine.h"

extern "C" __attribute__((visibility("default"))) tovak::run::ConversionEngine* createTovakXEngine(
    std::string& reason) {
  try {
    return tovak::engine::TovakX::create(reason).release();
  } catch (const std::exception&) {
    reason.clear();
    return nullptr;
  }
}
