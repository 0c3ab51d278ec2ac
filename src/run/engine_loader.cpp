#include "run/engine_loader.h"

#include "run/module_loader.h"

namespace tovak::run {

EngineResult createEngine(const std::string& identifier) {
  const std::string path = modulePath(identifier, "TOVAKX_COMPONENT");
  EngineResult result;
  void* const function = loadModuleFunction(path, kEngineFactoryName, result.reason);
  if (function == nullptr) return result;
  result.engine.reset(reinterpret_cast<EngineFactory*>(function)(result.reason));
  if (result.engine == nullptr && result.reason.empty()) result.reason = path + ": the engine did not start";
  return result;
}

}  // namespace tovak::run
