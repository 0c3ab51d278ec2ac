#include "text/file_identity.h"

#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

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

fs::path resolved(const std::string& name) {
  std::error_code error;
  const fs::path absolute = fs::absolute(behindLinks(name).value_or(name), error);
  if (error) return name;
  fs::path canonical = fs::weakly_canonical(absolute, error);
  return error ? absolute.lexically_normal() : canonical;
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

std::optional<fs::path> behindLinks(fs::path path) {
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code error;
    if (!fs::is_symlink(path, error)) return path;
    const fs::path link = fs::read_symlink(path, error);
    if (error) return path;
    path = path.parent_path() / link;
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

std::string whyNotLookedInto(const std::string& fileName) {
  std::error_code unknown;
  const fs::file_type type = fs::status(fileName, unknown).type();
  if (type == fs::file_type::regular || type == fs::file_type::not_found) return {};
  return fileName + " is no ordinary file and is not looked into.";
}

bool sameFile(const std::string& a, const std::string& b) {
  if (a.empty() || b.empty()) return false;
  std::error_code error;
  if (fs::is_character_file(a, error)) return false;
  const bool equivalent = fs::equivalent(a, b, error);
  if (!error) return equivalent;
  return resolved(a) == resolved(b);
}

}  // namespace tovak::text
