#include <algorithm>
#include <filesystem>
#include <optional>
#include <vector>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include "text/descriptor.h"
#include "text/file_identity.h"
#include "text/native_path.h"
#include "text/number.h"
#include "text/system_error.h"
#include "text/target_file.h"

// A file under a temporary name, which the system is told to delete as soon as nobody has it open, takes the place of
// one without a name: however the program ends, nothing of it stays.

namespace tovak::text {
namespace {

namespace fs = std::filesystem;

/// How many names are tried before giving up on a folder.
constexpr int kMostNames = 10000;

int lastError() {
  return static_cast<int>(::GetLastError());
}

HANDLE handleOf(int file) {
  return reinterpret_cast<HANDLE>(::_get_osfhandle(file));
}

/// The descriptor that closes the handle when it is closed; -1 for an invalid one.
int descriptorOf(HANDLE file) {
  return file == INVALID_HANDLE_VALUE ? -1 : ::_open_osfhandle(reinterpret_cast<std::intptr_t>(file), _O_BINARY);
}

/// Opens a file that is there; INVALID_HANDLE_VALUE when that fails.
HANDLE openOlder(const fs::path& path, DWORD access) {
  constexpr DWORD kAnyone = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  return ::CreateFileW(path.c_str(), access, kAnyone, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// The descriptor of NUL, CON or a pipe of that name; -1 for anything else.
int openDevice(const fs::path& path) {
  HANDLE file = openOlder(path, GENERIC_WRITE);
  if (file == INVALID_HANDLE_VALUE) return -1;
  if (::GetFileType(file) != FILE_TYPE_DISK) return descriptorOf(file);
  ::CloseHandle(file);
  return -1;
}

bool deleteWhenClosed(HANDLE file, bool wanted) {
  FILE_DISPOSITION_INFO info{};
  info.DeleteFile = wanted ? TRUE : FALSE;
  return ::SetFileInformationByHandle(file, FileDispositionInfo, &info, sizeof info) != 0;
}

/// Gives an open file its name: 0, or the number of the system's error.
int rename(HANDLE file, const fs::path& to, bool replaces) {
  std::error_code unknown;
  const std::wstring name = fs::absolute(to, unknown).wstring();
  const std::size_t size = name.size() * sizeof(wchar_t);
  std::vector<unsigned char> bytes(sizeof(FILE_RENAME_INFO) + size);
  auto* const info = reinterpret_cast<FILE_RENAME_INFO*>(bytes.data());
  info->ReplaceIfExists = replaces ? TRUE : FALSE;
  info->FileNameLength = static_cast<DWORD>(size);
  std::copy(name.begin(), name.end(), info->FileName);
  const auto length = static_cast<DWORD>(bytes.size());
  return ::SetFileInformationByHandle(file, FileRenameInfo, info, length) != 0 ? 0 : lastError();
}

/// As `rename`. A virus scanner or an indexer may hold a file for a moment that was just written.
int renamePatiently(HANDLE file, const fs::path& to, bool replaces) {
  constexpr DWORD kWait = 50;  // milliseconds
  constexpr int kTries = 20;
  int error = rename(file, to, replaces);
  for (int i = 1; i < kTries && (error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION); ++i) {
    ::Sleep(kWait);
    error = rename(file, to, replaces);
  }
  return error;
}

/// 0, or the number of the system's error.
int writeAll(HANDLE file, std::string_view bytes) {
  constexpr std::size_t kMost = std::size_t{1} << 30;
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto size = static_cast<DWORD>(std::min(bytes.size(), kMost));
    if (::WriteFile(file, bytes.data(), size, &written, nullptr) == 0) return lastError();
    if (written == 0) return ERROR_WRITE_FAULT;
    bytes.remove_prefix(written);
  }
  return 0;
}

/// Puts `between` and then everything in one file after the other, on the disk: 0, or the number of the system's error.
int appendContents(std::string_view between, HANDLE from, HANDLE to) {
  if (::SetFilePointerEx(from, {}, nullptr, FILE_BEGIN) == 0) return lastError();
  // One write for both, and for all of a short file: a program that is killed leaves both or neither.
  std::vector<char> block(between.size() + (std::size_t{64} << 10));
  for (std::size_t held = between.copy(block.data(), between.size());; held = 0) {
    DWORD count = 0;
    if (::ReadFile(from, block.data() + held, static_cast<DWORD>(block.size() - held), &count, nullptr) == 0)
      return lastError();
    if (const int error = writeAll(to, {block.data(), held + count}); error != 0) return error;
    if (count == 0) return ::FlushFileBuffers(to) != 0 ? 0 : lastError();
  }
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
  if (file_ >= 0) closeFile(file_);
  file_ = -1;
  temporaryName_.clear();
}

/// A temporary name for a file until it gets its final one.
std::string TargetFile::nameBeside(int number) const {
  std::string name = ".tovak_";
  appendWhole(name, static_cast<std::int64_t>(::GetCurrentProcessId()));
  name += '_';
  appendWhole(name, number);
  return (pathOf(finalName_).parent_path() / name).string();
}

bool TargetFile::createBeside() {
  for (int i = 0; i < kMostNames; ++i) {
    const std::string candidate = nameBeside(i);
    HANDLE file = ::CreateFileW(pathOf(candidate).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, FILE_SHARE_READ,
                                nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
      deleteWhenClosed(file, true);
      temporaryName_ = candidate;
      file_ = descriptorOf(file);
      return file_ >= 0;
    }
    if (::GetLastError() != ERROR_FILE_EXISTS) return false;
  }
  return false;
}

bool TargetFile::open(const std::string& fileName, Way way, Joint joint) {
  discard();
  fileName_ = fileName;
  way_ = way;
  joint_ = joint;
  start_ = 0;
  direct_ = hasOlder_ = false;
  error_.clear();
  if (fileName.empty()) return fail(ERROR_FILE_NOT_FOUND);
  const fs::path path = pathOf(fileName);
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  hasOlder_ = attributes != INVALID_FILE_ATTRIBUTES;
  if (const int error = hasOlder_ ? 0 : lastError(); error != 0 && error != ERROR_FILE_NOT_FOUND) return fail(error);
  if (hasOlder_ && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return fail(ERROR_DIRECTORY);
  file_ = openDevice(path);
  direct_ = file_ >= 0;
  if (direct_) return true;
  // A file that is protected, or that another program holds, shows now instead of after the work.
  HANDLE older = openOlder(path, GENERIC_WRITE | DELETE);
  if (older == INVALID_HANDLE_VALUE && hasOlder_) return fail(lastError());
  if (older != INVALID_HANDLE_VALUE) ::CloseHandle(older);
  const std::optional<fs::path> final = behindLinks(path);
  if (!final) return fail(ERROR_CANT_RESOLVE_FILENAME);
  finalName_ = final->string();
  return createBeside() || fail(lastError());
}

bool TargetFile::write(std::string_view bytes) {
  if (file_ < 0) return false;
  const int error = writeAll(handleOf(file_), bytes);
  return error == 0 || fail(error);
}

bool TargetFile::finish() {
  if (file_ < 0) return false;
  return direct_ || ::FlushFileBuffers(handleOf(file_)) != 0 || fail(lastError());
}

bool TargetFile::commit() {
  if (!finish()) return false;
  if (!direct_) {
    const int error = way_ == Way::Append ? putBehindOlder() : replaceOlder();
    if (error != 0) return fail(error);
  }
  discard();
  return true;
}

/// Gives the file its name, unless another has it: ERROR_ALREADY_EXISTS.
int TargetFile::takeFreeName() {
  if (!deleteWhenClosed(handleOf(file_), false)) return lastError();
  const int error = renamePatiently(handleOf(file_), pathOf(finalName_), false);
  if (error != 0) deleteWhenClosed(handleOf(file_), true);
  return error == ERROR_FILE_EXISTS ? ERROR_ALREADY_EXISTS : error;
}

/// Gives the file its name, which an older one may have.
int TargetFile::replaceOlder() {
  if (!deleteWhenClosed(handleOf(file_), false)) return lastError();
  const int error = renamePatiently(handleOf(file_), pathOf(finalName_), true);
  if (error != 0) deleteWhenClosed(handleOf(file_), true);
  return error;
}

/// Appends the file to the older one, or gives it its name when there is none, even if two programs do so at once.
int TargetFile::putBehindOlder() {
  for (int i = 0; i < kMostNames; ++i) {
    const fs::path name = pathOf(finalName_);
    HANDLE older = openOlder(name, GENERIC_READ | GENERIC_WRITE);
    if (older != INVALID_HANDLE_VALUE) return appendTo(descriptorOf(older));
    if (const int error = lastError(); error != ERROR_FILE_NOT_FOUND) return error;
    if (const int error = takeFreeName(); error != ERROR_ALREADY_EXISTS) return error;
  }
  return ERROR_ALREADY_EXISTS;
}

/// Appends to a file, which is closed.
int TargetFile::appendTo(int older) {
  HANDLE to = handleOf(older);
  OVERLAPPED place{};
  // A byte far behind any end stands for the file: what is in it can be read and written meanwhile.
  place.OffsetHigh = 0x7FFFFFFF;
  const bool locked = ::LockFileEx(to, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place) != 0;
  const std::string between = joint_ == nullptr ? std::string() : joint_(finalName_);
  LARGE_INTEGER end{};
  int error = ::SetFilePointerEx(to, {}, &end, FILE_END) != 0 ? 0 : lastError();
  if (error == 0) {
    start_ = static_cast<std::uint64_t>(end.QuadPart) + between.size();
    error = appendContents(between, handleOf(file_), to);
    if (error != 0 && ::SetFilePointerEx(to, end, nullptr, FILE_BEGIN) != 0) ::SetEndOfFile(to);
  }
  if (locked) ::UnlockFileEx(to, 0, 1, 0, &place);
  closeFile(older);
  return error;
}

// The system itself removes what is unfinished.
void removeUnfinishedFileOnSignals() {}

}  // namespace tovak::text
