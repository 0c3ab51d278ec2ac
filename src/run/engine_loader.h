/// Finding and loading the engine component.
#pragma once

#include <memory>
#include <string>

#include "run/conversion_engine.h"

namespace tovak::run {

/// The identifier of the program's engine.
inline constexpr const char* kEngineIdentifier = "TovakX.Tvkn";

struct EngineResult {
  std::unique_ptr<ConversionEngine> engine;  ///< null when it could not be created
  std::string reason;                        ///< then one line that says why
};

/// Creates the engine of an identifier such as "TovakX.Tvkn" from the module of that name: the file named by the
/// environment variable TOVAKX_COMPONENT when that is set, else the one beside the executable, else the one in the
/// installation's library folder. The module stays loaded until the program ends.
EngineResult createEngine(const std::string& identifier);

}  // namespace tovak::run
