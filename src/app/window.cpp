#include "app/program.h"
#include "run/module_loader.h"

namespace tovak::app {

bool openWindow(const WindowStart& start, std::string& reason) {
  const std::string path = run::modulePath(kWindowIdentifier, nullptr);
  void* const function = run::loadModuleFunction(path, kWindowFunctionName, reason);
  return function != nullptr && reinterpret_cast<WindowFunction*>(function)(start, reason);
}

}  // namespace tovak::app
