/// Finding the files that the program consists of, and loading its modules.
#pragma once

#include <string>

namespace tovak::run {

/// A file that comes with the program: the one beside the executable, else the one in the installation's share folder,
/// which
/// need not exist. The name may include folders. Where the system does not tell where the executable is, the
/// path leads nowhere; it is never one from the current folder.
std::string programFile(const std::string& fileName);

/// A file that a user may replace: the one in the data folder, else the `programFile`.
std::string dataFile(const std::string& fileName);

/// The module file of an identifier such as "TovakX.Tvkn" (what stands before the "."): the file named by the
/// environment variable `overridingVariable` when that is set (null for none), else the one beside the executable, else
/// the one in the installation's library folder. The path is absolute: neither the system's folders nor the current one
/// are searched.
std::string modulePath(const std::string& identifier, const char* overridingVariable);

/// The exported function of a module, or null; then `reason` receives one line that says why. The module stays loaded
/// until the program ends.
void* loadModuleFunction(const std::string& path, const char* functionName, std::string& reason);

}  // namespace tovak::run
