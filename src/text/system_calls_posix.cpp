#include <cstdio>

#include "text/system_calls.h"

namespace tovak::text {

SystemCalls systemCalls = {
    .open = [](const char* name, int flags, mode_t mode) { return ::open(name, flags, mode); },
    .read = ::read,
    .readAt = ::pread,
    .write = ::write,
    .sync = ::fsync,
    .close = ::close,
    .rename = std::rename,
    .renameToFree = [](const char* from,
                       const char* to) { return ::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE); },
    .link = [](const char* from, const char* to) { return ::linkat(AT_FDCWD, from, AT_FDCWD, to, AT_SYMLINK_FOLLOW); },
};

}  // namespace tovak::text
