/// A folder of one test's own, removed with everything in it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tovak::tests {

class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  /// The full name of a file in the folder.
  std::string file(std::string_view name) const { return (path_ / name).string(); }
  /// Writes a file and gives its full name.
  std::string write(std::string_view name, std::string_view contents) const;
  /// What the folder holds, sorted.
  std::vector<std::string> names() const;
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// The bytes of a file, with LF in place of the system's line end; "(no file)" when it cannot be opened.
std::string contentsOf(const std::string& fileName);

}  // namespace tovak::tests
