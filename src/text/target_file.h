/// A file that appears whole or not at all.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tovak::text {

/// What is written goes into a new file beside the final name and takes that name when it is committed, so a full disk,
/// a stopped or a killed program leaves an older file as it was. Devices and pipes are written directly; so is nothing
/// else. A symbolic link is followed: the file it names is replaced, the link stays.
///
/// A file may also grow: what is written then still goes into a new file beside it and is put behind the older one when
/// it is committed. Whatever else was added to that meanwhile stays, a failure in the middle takes back what was added,
/// and memory does not grow with either file.
class TargetFile {
 public:
  TargetFile() = default;
  TargetFile(const TargetFile&) = delete;
  TargetFile& operator=(const TargetFile&) = delete;
  /// What has not been committed is discarded.
  ~TargetFile();

  enum class Way {
    Replace,
    Append,  ///< behind a file that is there when this one is committed, else under its name
  };

  /// Each operation returns false on failure, and from then on every write and the commit fail with the first error.
  bool open(const std::string& fileName, Way way = Way::Replace);
  bool write(std::string_view bytes);
  /// Brings everything written to the disk, so that a full one shows before the older file is touched.
  bool finish();
  /// Finishes, and gives the file its name or puts it behind the older one.
  bool commit();

  /// Drops what was written; an older file stays.
  void discard();

  /// Where in the committed file the first byte written stands: 0, or behind an older file.
  std::uint64_t start() const { return start_; }

  /// The file's name and the system's text, empty without a failure.
  const std::string& error() const { return error_; }

 private:
  bool fail(int errorNumber);
  bool createBeside();
  bool appendToOlder();

  std::string fileName_;       ///< as the caller gave it: the name that errors carry
  std::string finalName_;      ///< with links resolved
  std::string temporaryName_;  ///< empty when the file is written directly
  int file_ = -1;
  Way way_ = Way::Replace;
  std::uint64_t start_ = 0;
  std::string error_;
};

/// From now on a program that is interrupted, terminated or hung up first removes the files it has not finished, then
/// ends as it would have.
void removeUnfinishedFileOnSignals();

}  // namespace tovak::text
