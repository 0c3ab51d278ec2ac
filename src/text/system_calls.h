/// The system calls by which files are opened, read, written and named, in one table.
#pragma once

#include <cstddef>

#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

namespace tovak::text {

/// Each is the POSIX function of its name, or of the name beside it, and leaves its error in errno. A call that a
/// signal interrupted is made again where it is made.
struct SystemCalls {
  int (*open)(const char* name, int flags, mode_t mode);
  ssize_t (*read)(int file, void* bytes, std::size_t size);
  ssize_t (*readAt)(int file, void* bytes, std::size_t size, off_t position);  ///< pread
  ssize_t (*write)(int file, const void* bytes, std::size_t size);
  int (*sync)(int file);  ///< fsync
  int (*close)(int file);
  int (*rename)(const char* from, const char* to);
  int (*renameToFree)(const char* from, const char* to);  ///< renameat2 that replaces nothing: EEXIST
  int (*link)(const char* from, const char* to);          ///< linkat that follows `from`
};

/// The system's own. Only tests put others in their place, to see what a disk that fails does.
extern SystemCalls systemCalls;

}  // namespace tovak::text
