#include "text/target_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "text/file_identity.h"
#include "text/number.h"
#include "text/system_error.h"

namespace tovak::text {
namespace {

namespace fs = std::filesystem;

/// The name of the file being written, for a signal handler, which can do little but read it. One at a time: a second
/// file begun meanwhile takes its place.
std::array<char, PATH_MAX> unfinishedName{};

void noteUnfinished(const std::string& name) {
  unfinishedName.front() = '\0';
  if (name.size() >= unfinishedName.size()) return;
  // The first character last: a handler between finds an empty name or a whole one.
  std::copy(name.begin() + (name.empty() ? 0 : 1), name.end(), unfinishedName.begin() + 1);
  unfinishedName[name.size()] = '\0';
  if (!name.empty()) unfinishedName.front() = name.front();
}

extern "C" void removeUnfinishedAndEnd(int signalNumber) {
  if (unfinishedName.front() != '\0') ::unlink(unfinishedName.data());
  std::signal(signalNumber, SIG_DFL);
  std::raise(signalNumber);
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
  noteUnfinished({});
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
    file_ = ::open(candidate.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file_ >= 0) {
      temporaryName_ = candidate;
      noteUnfinished(temporaryName_);
      return true;
    }
    if (errno != EEXIST) return false;
  }
  return false;
}

bool TargetFile::open(const std::string& fileName) {
  discard();
  fileName_ = fileName;
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
  while (!bytes.empty()) {
    const ssize_t written = ::write(file_, bytes.data(), bytes.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      return fail(errno);
    }
    if (written == 0) return fail(EIO);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool TargetFile::commit() {
  if (file_ < 0) return false;
  const bool direct = temporaryName_.empty();
  // The contents must be on the disk before the name is: a crash must not leave an empty file under it.
  if (!direct && ::fsync(file_) != 0) return fail(errno);
  const int file = file_;
  file_ = -1;
  if (::close(file) != 0 && errno != EINTR) return fail(errno);
  if (direct) return true;
  if (std::rename(temporaryName_.c_str(), finalName_.c_str()) != 0) return fail(errno);
  noteUnfinished({});
  temporaryName_.clear();
  return true;
}

void removeUnfinishedFileOnSignals() {
  for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP}) {
    // What the caller had ignored stays ignored.
    if (std::signal(signalNumber, removeUnfinishedAndEnd) == SIG_IGN) std::signal(signalNumber, SIG_IGN);
  }
}

}  // namespace tovak::text
