/// A file that appears whole or not at all.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tovak::text {

/// What is written goes into a new file in the folder of the final name, and takes that name when it is committed, so a
/// full disk, a stopped or a killed program leaves an older file as it was. The new file has no name until then where
/// the file system has such files, otherwise a temporary name, which stays only when the program is killed outright. A
/// symbolic link is followed: the file it names is replaced, the link stays.
///
/// Devices and pipes are written directly, and so is a name of an open descriptor ("/dev/stdout", "/dev/fd/3"), at the
/// descriptor's place and whatever it leads to.
///
/// A file may also grow: what is written is put after the older one, under a lock, when it is committed. Anything
/// another program added meanwhile stays, a failure halfway removes what was added, and memory does not grow with
/// either file.
class TargetFile {
 public:
  enum class Naming {
    Late,   ///< no name until it is committed, where the file system has such files
    Early,  ///< a name of its own from the start
  };

  explicit TargetFile(Naming naming = Naming::Late) : naming_(naming) {}
  TargetFile(const TargetFile&) = delete;
  TargetFile& operator=(const TargetFile&) = delete;
  /// Discards whatever has not been committed.
  ~TargetFile();

  enum class Way {
    Replace,
    Append,  ///< after a file that is there when this one is committed, else under its name
  };

  /// The text between the contents of an older file and what is appended to it. Asked while the older file is locked
  /// against others that want to append to it.
  using Joint = std::string (*)(const std::string& fileName);

  /// Each operation returns false on failure, and from then on every write and the commit fail with the first error.
  bool open(const std::string& fileName, Way way = Way::Replace, Joint joint = nullptr);
  bool write(std::string_view bytes);
  /// Flushes everything to the disk, so that a full disk is noticed before the older file is touched.
  bool finish();
  /// Finishes, and gives the file its name or appends it to the older one.
  bool commit();

  /// Drops what was written; an older file stays.
  void discard();

  /// Where in the committed file the first byte written stands: 0, or after an older file.
  std::uint64_t start() const { return start_; }
  /// Whether there was an older file when this one was opened.
  bool hasOlder() const { return hasOlder_; }
  /// Whether every write goes straight to the device, pipe or descriptor.
  bool isDirect() const { return direct_; }

  /// The file's name and the system's text, empty without a failure.
  const std::string& error() const { return error_; }

 private:
  bool fail(int errorNumber);
  bool openDescriptor(int descriptor);
  bool createBeside();
  bool createUnnamed();
  bool createNamed();
  std::string folder() const;
  std::string nameBeside(int number) const;
  // These return 0, or the number of the system's error.
  int putBehindOlder();
  int appendTo(int older);
  int takeFreeName();
  int replaceOlder();

  const Naming naming_;
  std::string fileName_;       ///< as the caller gave it: the name that errors carry
  std::string finalName_;      ///< with links resolved
  std::string temporaryName_;  ///< empty while the file has none
  int file_ = -1;
  bool direct_ = false;
  bool hasOlder_ = false;
  Way way_ = Way::Replace;
  Joint joint_ = nullptr;
  std::uint64_t start_ = 0;
  std::size_t waiting_ = 0;  ///< bytes written that the disk has not begun with
  std::string error_;
};

/// From now on a program that is interrupted, terminated or hung up first removes its unfinished files.
void removeUnfinishedFileOnSignals();

}  // namespace tovak::text
