#include <io.h>
#include <windows.h>

#include "text/file_identity.h"
#include "text/native_path.h"

namespace tovak::text {
namespace {

std::uint64_t joined(DWORD high, DWORD low) {
  return (std::uint64_t{high} << 32U) | low;
}

std::optional<FileVersion> versionOfOpen(HANDLE file) {
  BY_HANDLE_FILE_INFORMATION status{};
  if (::GetFileType(file) != FILE_TYPE_DISK || ::GetFileInformationByHandle(file, &status) == 0) return std::nullopt;
  if ((status.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return std::nullopt;
  constexpr std::uint64_t kStepsPerSecond = 10'000'000;
  const std::uint64_t written = joined(status.ftLastWriteTime.dwHighDateTime, status.ftLastWriteTime.dwLowDateTime);
  return FileVersion{.device = status.dwVolumeSerialNumber,
                     .number = joined(status.nFileIndexHigh, status.nFileIndexLow),
                     .size = static_cast<std::int64_t>(joined(status.nFileSizeHigh, status.nFileSizeLow)),
                     .seconds = static_cast<std::int64_t>(written / kStepsPerSecond),
                     .nanoseconds = static_cast<std::int64_t>(written % kStepsPerSecond) * 100};
}

}  // namespace

// No name of a file stands for an open descriptor here.
std::optional<int> namedDescriptor(const std::string& /*name*/) {
  return std::nullopt;
}

std::optional<FileVersion> versionOf(const std::string& fileName) {
  constexpr DWORD kAnyone = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  HANDLE file = ::CreateFileW(pathOf(fileName).c_str(), FILE_READ_ATTRIBUTES, kAnyone, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) return std::nullopt;
  const std::optional<FileVersion> version = versionOfOpen(file);
  ::CloseHandle(file);
  return version;
}

std::optional<FileVersion> versionOf(int descriptor) {
  return versionOfOpen(reinterpret_cast<HANDLE>(::_get_osfhandle(descriptor)));
}

}  // namespace tovak::text
