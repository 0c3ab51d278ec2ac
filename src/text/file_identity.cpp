#include "text/file_identity.h"

#include <filesystem>

#include "text/native_path.h"

namespace tovak::text {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;

fs::path resolved(const fs::path& path) {
  std::error_code error;
  const fs::path absolute = fs::absolute(behindLinks(path).value_or(path), error);
  if (error) return path;
  fs::path canonical = fs::weakly_canonical(absolute, error);
  return error ? absolute.lexically_normal() : canonical;
}

}  // namespace

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

std::string whyNotLookedInto(const std::string& fileName) {
  std::error_code unknown;
  const fs::file_type type = fs::status(pathOf(fileName), unknown).type();
  if (type == fs::file_type::regular || type == fs::file_type::not_found) return {};
  return fileName + " is no ordinary file and is not looked into.";
}

bool sameFile(const std::string& a, const std::string& b) {
  if (a.empty() || b.empty()) return false;
  const fs::path first = pathOf(a);
  const fs::path second = pathOf(b);
  std::error_code error;
  if (fs::is_character_file(first, error)) return false;
  const bool equivalent = fs::equivalent(first, second, error);
  if (!error) return equivalent;
  return resolved(first) == resolved(second);
}

}  // namespace tovak::text
