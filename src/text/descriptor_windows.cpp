#include <algorithm>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include "text/descriptor.h"
#include "text/native_path.h"

namespace tovak::text {

int openToRead(const std::string& fileName, bool /*wait*/) {
  // Others may write to the file, rename and delete it meanwhile, as they may elsewhere; a run notices.
  HANDLE file =
      ::CreateFileW(pathOf(fileName).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
  if (file == INVALID_HANDLE_VALUE) return -1;
  const int descriptor = ::_open_osfhandle(reinterpret_cast<std::intptr_t>(file), _O_RDONLY | _O_BINARY);
  if (descriptor < 0) ::CloseHandle(file);
  return descriptor;
}

std::ptrdiff_t readBlock(int file, char* to, std::size_t size) {
  constexpr std::size_t kMost = std::size_t{1} << 30;
  return ::_read(file, to, static_cast<unsigned>(std::min(size, kMost)));
}

bool goToByte(int file, std::uint64_t position) {
  return ::_lseeki64(file, static_cast<std::int64_t>(position), SEEK_SET) >= 0;
}

void closeFile(int file) {
  ::_close(file);
}

}  // namespace tovak::text
