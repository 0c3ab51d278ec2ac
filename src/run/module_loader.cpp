#include "run/module_loader.h"

#include <filesystem>
#include <optional>

#include "run/data_folder.h"
#include "run/executable_folder.h"
#include "text/environment.h"
#include "text/native_path.h"

namespace tovak::run {
namespace {

namespace fs = std::filesystem;

/// Where nothing is found: a file is no folder.
constexpr const char* kNowhere = "/proc/self/exe";

/// The file beside the executable, else the one in a folder of the installation, where it need not exist. Never one of
/// the current folder, which anybody may have filled: without the executable's folder the name leads nowhere.
std::string besideExecutableOr(const char* installed, const std::string& fileName) {
  std::error_code error;
  const fs::path folder = executableFolder();
  if (folder.empty()) return (fs::path(kNowhere) / fileName).string();
  const fs::path beside = folder / text::pathOf(fileName);
  if (fs::exists(beside, error)) return beside.string();
  return (folder.parent_path() / installed / fileName).make_preferred().string();
}

}  // namespace

std::string programFile(const std::string& fileName) {
  return besideExecutableOr(TOVAK_DATA_FOLDER, fileName);
}

std::string dataFile(const std::string& fileName) {
  const fs::path folder = dataFolder();
  std::error_code error;
  // A broken link or a folder of that name is reported rather than ignored.
  const bool own = !folder.empty() && fs::symlink_status(folder / fileName, error).type() != fs::file_type::not_found;
  return own ? (folder / fileName).string() : programFile(fileName);
}

std::string modulePath(const std::string& identifier, const char* overridingVariable) {
  std::error_code error;
  std::optional<std::string> named;
  if (overridingVariable != nullptr) named = text::environmentValue(overridingVariable);
  // Of a name without a folder the loader would search the system.
  if (named) return fs::absolute(text::pathOf(*named), error).string();
  return besideExecutableOr(TOVAK_MODULE_FOLDER, identifier.substr(0, identifier.find('.')) + TOVAK_MODULE_SUFFIX);
}

}  // namespace tovak::run
