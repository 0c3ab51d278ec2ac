#include "text/file_identity.h"

#include <filesystem>

namespace tovak::text {
namespace {

namespace fs = std::filesystem;

fs::path resolved(const std::string& name) {
  std::error_code error;
  const fs::path absolute = fs::absolute(behindLinks(name).value_or(name), error);
  if (error) return name;
  fs::path canonical = fs::weakly_canonical(absolute, error);
  return error ? absolute.lexically_normal() : canonical;
}

}  // namespace

std::optional<fs::path> behindLinks(fs::path path) {
  constexpr int kMostLinks = 40;
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code error;
    if (!fs::is_symlink(path, error)) return path;
    const fs::path link = fs::read_symlink(path, error);
    if (error) return path;
    path = path.parent_path() / link;
  }
  return std::nullopt;
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
