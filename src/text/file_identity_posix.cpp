#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

#include "text/file_identity.h"
#include "text/number.h"

namespace tovak::text {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;

std::optional<FileVersion> versionIn(const struct stat& status) {
  if (!S_ISREG(status.st_mode)) return std::nullopt;
  return FileVersion{.device = status.st_dev,
                     .number = status.st_ino,
                     .size = status.st_size,
                     .seconds = status.st_mtim.tv_sec,
                     .nanoseconds = status.st_mtim.tv_nsec};
}

}  // namespace

std::optional<int> namedDescriptor(const std::string& name) {
  std::string descriptors = "/proc/";
  appendWhole(descriptors, ::getpid());
  descriptors += "/fd";
  std::error_code error;
  fs::path path = fs::absolute(name, error).lexically_normal();
  for (int i = 0; i < kMostLinks && !error; ++i) {
    if (fs::canonical(path.parent_path(), error) == descriptors) {
      const std::string number = path.filename().string();
      const LeadingNumber parsed = parseLeadingNumber(number);
      if (number.empty() || parsed.length != number.size()) return std::nullopt;
      return toInt16(parsed.value);
    }
    if (!fs::is_symlink(path, error)) return std::nullopt;
    path = path.parent_path() / fs::read_symlink(path, error);
  }
  return std::nullopt;
}

std::optional<FileVersion> versionOf(const std::string& fileName) {
  struct stat status {};
  return ::stat(fileName.c_str(), &status) == 0 ? versionIn(status) : std::nullopt;
}

std::optional<FileVersion> versionOf(int descriptor) {
  struct stat status {};
  return ::fstat(descriptor, &status) == 0 ? versionIn(status) : std::nullopt;
}

}  // namespace tovak::text
