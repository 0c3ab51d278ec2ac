#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "text/file_identity.h"
#include "text/number.h"
#include "text/system_calls.h"
#include "text/system_error.h"
#include "text/target_file.h"

namespace tovak::text {
namespace {

namespace fs = std::filesystem;

/// The names of the files being written, for a signal handler, which can do little but read them. A free place begins
/// with a null character. Files beyond this number, which the program never has, would be left behind.
constexpr std::size_t kMostUnfinished = 4;
using UnfinishedName = std::array<char, PATH_MAX>;
std::array<UnfinishedName, kMostUnfinished> unfinishedNames{};

void noteUnfinished(const std::string& name) {
  const auto place = std::find_if(unfinishedNames.begin(), unfinishedNames.end(),
                                  [](const UnfinishedName& noted) { return noted.front() == '\0'; });
  if (place == unfinishedNames.end() || name.empty() || name.size() >= place->size()) return;
  // The first character last: a handler between finds an empty name or a whole one.
  std::copy(name.begin() + 1, name.end(), place->begin() + 1);
  (*place)[name.size()] = '\0';
  place->front() = name.front();
}

void forgetUnfinished(const std::string& name) {
  for (UnfinishedName& noted : unfinishedNames) {
    if (name == noted.data()) noted.front() = '\0';
  }
}

extern "C" void removeUnfinishedAndEnd(int signalNumber) {
  for (const UnfinishedName& noted : unfinishedNames) {
    if (noted.front() != '\0') ::unlink(noted.data());
  }
  std::signal(signalNumber, SIG_DFL);
  std::raise(signalNumber);
}

constexpr std::array<int, 3> kEndingSignals = {SIGINT, SIGTERM, SIGHUP};

/// Lets the signals that end the program wait while an older file is being extended.
class SignalsWait {
 public:
  SignalsWait() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signalNumber : kEndingSignals) sigaddset(&signals, signalNumber);
    pthread_sigmask(SIG_BLOCK, &signals, &before_);
  }
  SignalsWait(const SignalsWait&) = delete;
  SignalsWait& operator=(const SignalsWait&) = delete;
  ~SignalsWait() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

 private:
  sigset_t before_{};
};

/// After so many bytes the disk begins with them, so that little is left to bring there at the end, when the program
/// waits for it.
constexpr std::size_t kWriteBackStep = std::size_t{8} << 20;

/// Counts bytes written into a file; `waiting` are those that the disk has not been told of. Only a hint: what fails is
/// told by the next fsync.
void countForDisk(int file, std::size_t bytes, std::size_t& waiting) {
  waiting += bytes;
  if (waiting < kWriteBackStep) return;
  waiting = 0;
  ::sync_file_range(file, 0, 0, SYNC_FILE_RANGE_WRITE);
}

/// 0, or the number of the system's error.
int writeAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = systemCalls.write(file, bytes.data(), bytes.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      return errno;
    }
    if (written == 0) return EIO;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

/// Brings a file to the disk: 0, or the number of the system's error.
int bringToDisk(int file) {
  while (systemCalls.sync(file) != 0) {
    if (errno != EINTR) return errno;
  }
  return 0;
}

/// A file system on another machine, or one with quotas, may tell of a failed write no sooner than at a close. This one
/// is another descriptor's, so that the file can still be given up: 0, or the number of the system's error.
int closeCopy(int file) {
  const int copy = ::fcntl(file, F_DUPFD_CLOEXEC, 0);
  if (copy < 0) return errno;
  return systemCalls.close(copy) == 0 || errno == EINTR ? 0 : errno;
}

/// Puts `between` and then everything in one file after the other, on the disk: 0, or the number of the system's
/// error.
int appendContents(std::string_view between, int from, int to) {
  // One write for both, and for all of a short file: a program that is killed leaves both or neither.
  std::vector<char> block(between.size() + (std::size_t{64} << 10));
  std::size_t held = between.copy(block.data(), between.size());
  std::size_t waiting = 0;
  for (off_t position = 0;;) {
    const ssize_t count = systemCalls.readAt(from, block.data() + held, block.size() - held, position);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    const int error = writeAll(to, {block.data(), held + static_cast<std::size_t>(count)});
    if (error != 0) return error;
    if (count == 0) return bringToDisk(to);
    countForDisk(to, static_cast<std::size_t>(count), waiting);
    position += count;
    held = 0;
  }
}

/// The name by which the system knows an open file of this program.
std::string processName(int file) {
  std::string name = "/proc/self/fd/";
  appendWhole(name, file);
  return name;
}

/// How many names are tried before giving up on a folder.
constexpr int kMostNames = 10000;

/// A new file gets the older one's permissions and, as far as the system allows, its owner.
void inheritAttributes(int file, const struct stat& older) {
  if (::fchown(file, older.st_uid, older.st_gid) != 0) errno = 0;
  ::fchmod(file, older.st_mode & 07777);
}

}  // namespace

TargetFile::~TargetFile() {
  discard();
}

bool TargetFile::fail(int errorNumber) {
  if (error_.empty()) error_ = systemErrorText(fileName_, errorNumber);
  discard();
  return false;
}

void TargetFile::discard() {
  if (file_ >= 0) systemCalls.close(file_);
  file_ = -1;
  if (temporaryName_.empty()) return;
  ::unlink(temporaryName_.c_str());
  forgetUnfinished(temporaryName_);
  temporaryName_.clear();
}

std::string TargetFile::folder() const {
  const fs::path folder = fs::path(finalName_).parent_path();
  return folder.empty() ? "." : folder.string();
}

/// A temporary name for a file until it gets its final one.
std::string TargetFile::nameBeside(int number) const {
  std::string name = ".tovak_";
  appendWhole(name, ::getpid());
  name += '_';
  appendWhole(name, number);
  return (fs::path(finalName_).parent_path() / name).string();
}

bool TargetFile::createUnnamed() {
  file_ = systemCalls.open(folder().c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0666);
  if (file_ < 0) return false;
  // A file can only be linked within its own file system.
  if (::access(processName(file_).c_str(), F_OK) == 0) return true;
  systemCalls.close(file_);
  file_ = -1;
  return false;
}

bool TargetFile::createNamed() {
  for (int i = 0; i < kMostNames; ++i) {
    const std::string candidate = nameBeside(i);
    file_ = systemCalls.open(candidate.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file_ >= 0) {
      temporaryName_ = candidate;
      noteUnfinished(temporaryName_);
      return true;
    }
    if (errno != EEXIST) return false;
  }
  return false;
}

bool TargetFile::createBeside() {
  return (naming_ == Naming::Late && createUnnamed()) || createNamed();
}

bool TargetFile::openDescriptor(int descriptor) {
  direct_ = true;
  const int flags = ::fcntl(descriptor, F_GETFL);
  if (flags >= 0 && (flags & O_ACCMODE) == O_RDONLY) return fail(EBADF);
  file_ = ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
  return file_ >= 0 || fail(errno);
}

bool TargetFile::open(const std::string& fileName, Way way, Joint joint) {
  discard();
  fileName_ = fileName;
  way_ = way;
  joint_ = joint;
  start_ = 0;
  waiting_ = 0;
  direct_ = hasOlder_ = false;
  error_.clear();
  if (fileName.empty()) return fail(ENOENT);
  if (const std::optional<int> descriptor = namedDescriptor(fileName)) return openDescriptor(*descriptor);
  struct stat older {};
  const bool exists = ::stat(fileName.c_str(), &older) == 0;
  if (!exists && errno != ENOENT) return fail(errno);
  if (exists && S_ISDIR(older.st_mode)) return fail(EISDIR);
  if (exists && !S_ISREG(older.st_mode)) {
    direct_ = true;
    file_ = systemCalls.open(fileName.c_str(), O_WRONLY | O_CLOEXEC, 0);
    return file_ >= 0 || fail(errno);
  }
  hasOlder_ = exists;
  const std::optional<fs::path> final = behindLinks(fileName);
  if (!final) return fail(ELOOP);
  finalName_ = final->string();
  if (nameBeside(kMostNames).size() >= PATH_MAX) return fail(ENAMETOOLONG);
  // Renaming would replace even a file that is protected against writing.
  if (exists && ::access(fileName.c_str(), W_OK) != 0) return fail(errno);
  if (!createBeside()) return fail(errno);
  if (exists) inheritAttributes(file_, older);
  return true;
}

bool TargetFile::write(std::string_view bytes) {
  if (file_ < 0) return false;
  const int error = writeAll(file_, bytes);
  if (error != 0) return fail(error);
  countForDisk(file_, bytes.size(), waiting_);
  return true;
}

bool TargetFile::finish() {
  if (file_ < 0) return false;
  // The contents must be on the disk before the name is: a crash must not leave an empty file under it. Devices and
  // pipes say that there is nothing to bring there.
  const int error = bringToDisk(file_);
  if (direct_) return error == 0 || error == EINVAL || error == EROFS || fail(error);
  const int late = error == 0 ? closeCopy(file_) : error;
  return late == 0 || fail(late);
}

bool TargetFile::commit() {
  if (!finish()) return false;
  if (direct_) {
    const int file = file_;
    file_ = -1;
    return systemCalls.close(file) == 0 || errno == EINTR || fail(errno);
  }
  const SignalsWait wait;
  const int error = way_ == Way::Append ? putBehindOlder() : replaceOlder();
  if (error != 0) return fail(error);
  discard();
  return true;
}

/// Gives the file its name, unless another has it: EEXIST.
int TargetFile::takeFreeName() {
  if (temporaryName_.empty()) {
    const std::string unnamed = processName(file_);
    return systemCalls.link(unnamed.c_str(), finalName_.c_str()) == 0 ? 0 : errno;
  }
  if (systemCalls.renameToFree(temporaryName_.c_str(), finalName_.c_str()) != 0) {
    if (errno != EINVAL && errno != ENOSYS) return errno;
    // The file system has no such call: between the check and the rename another file may take the name.
    if (::access(finalName_.c_str(), F_OK) == 0) return EEXIST;
    if (errno != ENOENT) return errno;
    if (systemCalls.rename(temporaryName_.c_str(), finalName_.c_str()) != 0) return errno;
  }
  forgetUnfinished(temporaryName_);
  temporaryName_.clear();
  return 0;
}

/// Gives the file its name, which an older one may have. A file without a name cannot take the place of another, so it
/// has a temporary name for a moment.
int TargetFile::replaceOlder() {
  const int error = takeFreeName();
  if (error != EEXIST) return error;
  for (int i = 0; temporaryName_.empty(); ++i) {
    const std::string candidate = nameBeside(i);
    if (systemCalls.link(processName(file_).c_str(), candidate.c_str()) == 0) {
      temporaryName_ = candidate;
    } else if (errno != EEXIST || i == kMostNames) {
      return errno;
    }
  }
  if (systemCalls.rename(temporaryName_.c_str(), finalName_.c_str()) != 0) return errno;
  forgetUnfinished(temporaryName_);
  temporaryName_.clear();
  return 0;
}

/// Appends the file to the older one, or gives it its name when there is none, even if two programs do so at once.
int TargetFile::putBehindOlder() {
  for (int i = 0; i < kMostNames; ++i) {
    const int older = systemCalls.open(finalName_.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC, 0);
    if (older >= 0) return appendTo(older);
    if (errno != ENOENT) return errno;
    const int error = takeFreeName();
    if (error != EEXIST) return error;
  }
  return EEXIST;
}

/// Appends to a file, which is closed.
int TargetFile::appendTo(int older) {
  // Another program may be appending too. Where files cannot be locked, it goes on without a lock.
  ::flock(older, LOCK_EX);
  struct stat before {};
  int error = ::fstat(older, &before) == 0 ? 0 : errno;
  if (error == 0) {
    const std::string between = joint_ == nullptr ? std::string() : joint_(finalName_);
    start_ = static_cast<std::uint64_t>(before.st_size) + between.size();
    error = appendContents(between, file_, older);
    if (error == 0) error = closeCopy(older);
    if (error != 0 && ::ftruncate(older, before.st_size) != 0) errno = 0;
  }
  systemCalls.close(older);  // everything is on the disk
  return error;
}

void removeUnfinishedFileOnSignals() {
  for (const int signalNumber : kEndingSignals) {
    // A signal that was ignored stays ignored.
    if (std::signal(signalNumber, removeUnfinishedAndEnd) == SIG_IGN) std::signal(signalNumber, SIG_IGN);
  }
}

}  // namespace tovak::text
