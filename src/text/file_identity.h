/// Whether two names lead to one file.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace tovak::text {

/// The path a chain of symbolic links leads to, existing or not; nothing for a loop.
std::optional<std::filesystem::path> behindLinks(std::filesystem::path path);

/// True when both names are in truth the same file: equal names, "./a" and "a", links of either kind, or letter case on
/// a file system that does not tell it. Terminals and other character devices are never the same file: reading and
/// writing one does no harm.
bool sameFile(const std::string& a, const std::string& b);

}  // namespace tovak::text
