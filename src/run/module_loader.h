/// Finding the files that the program consists of, and loading its modules.
#pragma once

#include <string>

namespace tovak::run {

/// A file of the program's own: the one beside the executable, else the one in the installation's library folder, which
/// need not be there.
std::string programFile(const std::string& fileName);

/// The module file of an identifier such as "TovakX.Tvkn" (what stands before the "."): the file named by the
/// environment variable `overridingVariable` when that is set (null for none), else the `programFile`.
std::string modulePath(const std::string& identifier, const char* overridingVariable);

/// The exported function of a module, or null; then `reason` receives one line that says why. The module stays loaded
/// until the program ends.
void* loadModuleFunction(const std::string& path, const char* functionName, std::string& reason);

}  // namespace tovak::run
