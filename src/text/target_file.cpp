#include "text/target_file.h"

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
#include "text/system_error.h"

namespace tovak::text {
namespace {

namespace fs = std::filesystem;

/// The names of the files being written, for a signal handler, which can do little but read them. A free place begins
/// with a null character. A file beyond these, of which there is none, would stay behind.
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

/// 0, or the number of the system's error.
int writeAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      return errno;
    }
    if (written == 0) return EIO;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

/// Puts everything in one file behind the other, on the disk: 0, or the number of the system's error.
int appendContents(int from, int to) {
  std::vector<char> block(std::size_t{64} << 10);
  for (off_t position = 0;;) {
    const ssize_t count = ::pread(from, block.data(), block.size(), position);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    if (count == 0) return ::fsync(to) == 0 ? 0 : errno;
    const int error = writeAll(to, {block.data(), static_cast<std::size_t>(count)});
    if (error != 0) return error;
    position += count;
  }
}

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
  if (file_ >= 0) ::close(file_);
  file_ = -1;
  if (temporaryName_.empty()) return;
  ::unlink(temporaryName_.c_str());
  forgetUnfinished(temporaryName_);
  temporaryName_.clear();
}

bool TargetFile::createBeside() {
  const fs::path folder = fs::path(finalName_).parent_path();
  constexpr int kMostNames = 10000;
  for (int i = 0; i < kMostNames; ++i) {
    std::string name = ".tovak_";
    appendWhole(name, ::getpid());
    name += '_';
    appendWhole(name, i);
    const std::string candidate = (folder / name).string();
    file_ = ::open(candidate.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file_ >= 0) {
      temporaryName_ = candidate;
      noteUnfinished(temporaryName_);
      return true;
    }
    if (errno != EEXIST) return false;
  }
  return false;
}

bool TargetFile::open(const std::string& fileName, Way way) {
  discard();
  fileName_ = fileName;
  way_ = way;
  start_ = 0;
  error_.clear();
  struct stat older {};
  const bool exists = ::stat(fileName.c_str(), &older) == 0;
  if (exists && S_ISDIR(older.st_mode)) return fail(EISDIR);
  if (exists && !S_ISREG(older.st_mode)) {
    file_ = ::open(fileName.c_str(), O_WRONLY | O_CLOEXEC);
    return file_ >= 0 || fail(errno);
  }
  const std::optional<fs::path> final = behindLinks(fileName);
  if (!final) return fail(ELOOP);
  finalName_ = final->string();
  // Renaming would replace even a file that is protected against writing.
  if (exists && ::access(fileName.c_str(), W_OK) != 0) return fail(errno);
  if (!createBeside()) return fail(errno);
  if (exists) inheritAttributes(file_, older);
  return true;
}

bool TargetFile::write(std::string_view bytes) {
  if (file_ < 0) return false;
  const int error = writeAll(file_, bytes);
  return error == 0 || fail(error);
}

bool TargetFile::finish() {
  if (file_ < 0) return false;
  // The contents must be on the disk before the name is: a crash must not leave an empty file under it.
  return temporaryName_.empty() || ::fsync(file_) == 0 || fail(errno);
}

bool TargetFile::commit() {
  if (!finish()) return false;
  if (way_ == Way::Append && !temporaryName_.empty() && ::access(finalName_.c_str(), F_OK) == 0) return appendToOlder();
  const int file = file_;
  file_ = -1;
  if (::close(file) != 0 && errno != EINTR) return fail(errno);
  if (temporaryName_.empty()) return true;
  if (std::rename(temporaryName_.c_str(), finalName_.c_str()) != 0) return fail(errno);
  forgetUnfinished(temporaryName_);
  temporaryName_.clear();
  return true;
}

bool TargetFile::appendToOlder() {
  const SignalsWait wait;
  const int older = ::open(finalName_.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
  if (older < 0) return fail(errno);
  // Another program may be at the same; where files cannot be locked it goes on without.
  ::flock(older, LOCK_EX);
  struct stat before {};
  int error = ::fstat(older, &before) == 0 ? 0 : errno;
  if (error == 0) {
    start_ = static_cast<std::uint64_t>(before.st_size);
    error = appendContents(file_, older);
    if (error != 0 && ::ftruncate(older, before.st_size) != 0) errno = 0;
  }
  if (::close(older) != 0 && errno != EINTR && error == 0) error = errno;
  if (error != 0) return fail(error);
  discard();
  return true;
}

void removeUnfinishedFileOnSignals() {
  for (const int signalNumber : kEndingSignals) {
    // What the caller had ignored stays ignored.
    if (std::signal(signalNumber, removeUnfinishedAndEnd) == SIG_IGN) std::signal(signalNumber, SIG_IGN);
  }
}

}  // namespace tovak::text
