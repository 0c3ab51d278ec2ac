/// A file that appears whole or not at all.
#pragma once

#include <string>
#include <string_view>

namespace tovak::text {

/// What is written goes into a new file beside the final name and takes that name when it is committed, so a full disk,
/// a stopped or a killed program leaves an older file as it was. Devices and pipes are written directly; so is nothing
/// else. A symbolic link is followed: the file it names is replaced, the link stays.
class TargetFile {
 public:
  TargetFile() = default;
  TargetFile(const TargetFile&) = delete;
  TargetFile& operator=(const TargetFile&) = delete;
  /// What has not been committed is discarded.
  ~TargetFile();

  /// Each operation returns false on failure, and from then on every write and the commit fail with the first error.
  bool open(const std::string& fileName);
  bool write(std::string_view bytes);
  bool commit();

  /// Drops what was written; an older file stays.
  void discard();

  /// The file's name and the system's text, empty without a failure.
  const std::string& error() const { return error_; }

 private:
  bool fail(int errorNumber);
  bool createBeside();

  std::string fileName_;       ///< as the caller gave it: the name that errors carry
  std::string finalName_;      ///< with links resolved
  std::string temporaryName_;  ///< empty when the file is written directly
  int file_ = -1;
  std::string error_;
};

/// From now on a program that is interrupted, terminated or hung up first removes the file it has not finished, then
/// ends as it would have.
void removeUnfinishedFileOnSignals();

}  // namespace tovak::text
