#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

#include "text/descriptor.h"
#include "text/system_calls.h"

namespace tovak::text {

int openToRead(const std::string& fileName, bool wait) {
  const int flags = O_RDONLY | O_CLOEXEC | (wait ? 0 : O_NONBLOCK);
  int file = -1;
  do file = systemCalls.open(fileName.c_str(), flags, 0);
  while (file < 0 && errno == EINTR);
  return file;
}

std::ptrdiff_t readBlock(int file, char* to, std::size_t size) {
  ssize_t count = 0;
  do count = systemCalls.read(file, to, size);
  while (count < 0 && errno == EINTR);
  return count;
}

bool goToByte(int file, std::uint64_t position) {
  return ::lseek(file, static_cast<off_t>(position), SEEK_SET) >= 0;
}

void closeFile(int file) {
  systemCalls.close(file);
}

}  // namespace tovak::text
