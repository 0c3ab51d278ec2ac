/// Which file a file name refers to.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace tovak::text {

/// The path a chain of symbolic links leads to, existing or not; nothing for a loop.
std::optional<std::filesystem::path> behindLinks(std::filesystem::path path);

/// The number of this program's open descriptor that a name refers to, directly or through links: 1 for "/dev/stdout",
/// 3 for "/dev/fd/3" or "/proc/self/fd/3". Nothing for any other name.
std::optional<int> namedDescriptor(const std::string& name);

/// Tells whether a file has changed: which one it is, its size in bytes and when it was last written to.
struct FileVersion {
  std::uint64_t device = 0;
  std::uint64_t number = 0;
  std::int64_t size = 0;
  std::int64_t seconds = 0;
  std::int64_t nanoseconds = 0;

  bool operator==(const FileVersion&) const = default;
};

/// Of a file by its name, or of an open one; nothing unless it is an ordinary file.
std::optional<FileVersion> versionOf(const std::string& fileName);
std::optional<FileVersion> versionOf(int descriptor);

/// Why a file cannot be looked into before a run reads it: "FILE is no ordinary file and is not looked into." A pipe
/// can be read only once. Empty for an ordinary file, and when there is no such file.
std::string whyNotLookedInto(const std::string& fileName);

/// True when both names are in truth the same file: equal names, "./a" and "a", links of either kind, or letter case on
/// a file system that does not tell it. Terminals and other character devices are never the same file: reading and
/// writing one does no harm.
bool sameFile(const std::string& a, const std::string& b);

}  // namespace tovak::text
