/// A system whose calls fail, transfer only a little, or end the program, as a test plans it.
#pragma once

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <functional>
#include <utility>

#include "text/system_calls.h"

namespace tovak::tests {

enum class Call { Open, Read, ReadAt, Write, Sync, Close, Rename, RenameToFree, Link };
inline constexpr std::array kCallNames = {"open",  "read",   "pread",     "write", "fsync",
                                          "close", "rename", "renameat2", "link"};

struct FaultPlan {
  Call call = Call::Open;
  int place = 0;  ///< which call of the kind fails, from 1; 0 for none
  int error = 0;
  int killedBefore = 0;         ///< the call of any kind before which the program is killed, from 1
  bool shortTransfers = false;  ///< a few bytes at a time
  bool noUnnamedFiles = false;
  std::function<void()> atFirstRead = nullptr;
  bool reached = false;
};

inline FaultPlan faultPlan;
inline const text::SystemCalls realCalls = text::systemCalls;

/// Whether this call is the one that fails.
inline bool isDue(Call call) {
  if (faultPlan.killedBefore > 0 && --faultPlan.killedBefore == 0) std::raise(SIGKILL);
  if (call != faultPlan.call || faultPlan.place == 0 || --faultPlan.place > 0) return false;
  faultPlan.reached = true;
  errno = faultPlan.error;
  return true;
}

inline std::size_t few(std::size_t size) {
  return faultPlan.shortTransfers ? std::min<std::size_t>(size, 997) : size;
}

inline const text::SystemCalls kFaultyCalls = {
    .open =
        [](const char* name, int flags, mode_t mode) {
          if (isDue(Call::Open)) return -1;
          const bool refused = faultPlan.noUnnamedFiles && (flags & O_TMPFILE) == O_TMPFILE;
          return realCalls.open(refused ? "/dev/null/none" : name, flags, mode);
        },
    .read = [](int file, void* bytes, std::size_t size) -> ssize_t {
      if (const auto act = std::exchange(faultPlan.atFirstRead, nullptr)) act();
      return isDue(Call::Read) ? -1 : realCalls.read(file, bytes, few(size));
    },
    .readAt = [](int file, void* bytes, std::size_t size, off_t position) -> ssize_t {
      return isDue(Call::ReadAt) ? -1 : realCalls.readAt(file, bytes, few(size), position);
    },
    .write = [](int file, const void* bytes, std::size_t size) -> ssize_t {
      return isDue(Call::Write) ? -1 : realCalls.write(file, bytes, few(size));
    },
    .sync = [](int) { return isDue(Call::Sync) ? -1 : 0; },  // no test cuts the power
    .close =
        [](int file) {
          const bool due = isDue(Call::Close);
          const int error = errno;
          const int closed = realCalls.close(file);
          errno = error;
          return due ? -1 : closed;
        },
    .rename = [](const char* from, const char* to) { return isDue(Call::Rename) ? -1 : realCalls.rename(from, to); },
    .renameToFree = [](const char* from,
                       const char* to) { return isDue(Call::RenameToFree) ? -1 : realCalls.renameToFree(from, to); },
    .link = [](const char* from, const char* to) { return isDue(Call::Link) ? -1 : realCalls.link(from, to); },
};

/// The faulty calls, until the end of the scope.
class FaultySystem {
 public:
  explicit FaultySystem(FaultPlan plan) {
    faultPlan = std::move(plan);
    text::systemCalls = kFaultyCalls;
  }
  FaultySystem(const FaultySystem&) = delete;
  FaultySystem& operator=(const FaultySystem&) = delete;
  ~FaultySystem() { text::systemCalls = realCalls; }
};

}  // namespace tovak::tests
