#include "engine/proj_files.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include <proj.h>

#include "engine/datum_grid.h"
#include "text/environment.h"
#include "text/native_path.h"
#include "text/strings.h"

struct PROJ_FILE_HANDLE {
  std::string_view contents;
  std::size_t position = 0;
};

namespace tovak::engine {
namespace {

namespace fs = std::filesystem;

constexpr const char* kDatabaseFile = "proj.db";
constexpr char kFolderSeparator = fs::path::preferred_separator == '/' ? ':' : ';';  // of a list of folders

// Called for names without a folder. An empty name means that there is no such file: otherwise PROJ would replace a
// missing grid with a predecessor, look for other files in the current folder, and open its database for every
// operation, which takes a third of the time of a run of one point.
const char* answerPath(PJ_CONTEXT* /*context*/, const char* name, void* /*data*/) {
  return std::strcmp(name, kDatumGridFile) == 0 ? kDatumGridFile : "";
}

// Called for everything that is opened but the database, names with a folder included.
PROJ_FILE_HANDLE* openFile(PJ_CONTEXT* /*context*/, const char* name, PROJ_OPEN_ACCESS access, void* data) {
  const ProjFiles& files = *static_cast<const ProjFiles*>(data);
  if (access != PROJ_OPEN_ACCESS_READ_ONLY || *name == '\0') return nullptr;
  const bool isGrid = std::strcmp(name, kDatumGridFile) == 0 && !files.grid.empty();
  return isGrid ? new (std::nothrow) PROJ_FILE_HANDLE{files.grid, 0} : nullptr;
}

std::size_t readFile(PJ_CONTEXT* /*context*/, PROJ_FILE_HANDLE* file, void* buffer, std::size_t size, void* /*data*/) {
  const std::size_t start = std::min(file->position, file->contents.size());
  const std::size_t length = file->contents.copy(static_cast<char*>(buffer), size, start);
  file->position = start + length;
  return length;
}

int seekFile(PJ_CONTEXT* /*context*/, PROJ_FILE_HANDLE* file, long long offset, int whence, void* /*data*/) {
  long long position = offset;
  if (whence == SEEK_CUR) position += static_cast<long long>(file->position);
  if (whence == SEEK_END) position += static_cast<long long>(file->contents.size());
  if (position < 0) return 0;
  file->position = static_cast<std::size_t>(position);
  return 1;
}

constexpr PROJ_FILE_API kFileFunctions = {
    .version = 1,
    .open_cbk = openFile,
    .read_cbk = readFile,
    .write_cbk = [](PJ_CONTEXT*, PROJ_FILE_HANDLE*, const void*, std::size_t, void*) -> std::size_t { return 0; },
    .seek_cbk = seekFile,
    .tell_cbk = [](PJ_CONTEXT*, PROJ_FILE_HANDLE* file, void*) -> unsigned long long { return file->position; },
    .close_cbk = [](PJ_CONTEXT*, PROJ_FILE_HANDLE* file, void*) { delete file; },
    .exists_cbk = [](PJ_CONTEXT*, const char*, void*) { return 0; },
    .mkdir_cbk = [](PJ_CONTEXT*, const char*, void*) { return 0; },
    .unlink_cbk = [](PJ_CONTEXT*, const char*, void*) { return 0; },
    .rename_cbk = [](PJ_CONTEXT*, const char*, const char*, void*) { return 0; }};

/// PROJ itself reads the variables once in a process.
std::string searchedFolders() {
  for (const char* variable : {"PROJ_DATA", "PROJ_LIB"}) {
    if (std::optional<std::string> value = text::environmentValue(variable)) return *std::move(value);
  }
  return proj_info().searchpath;
}

std::string findProjDatabase() {
  const std::string searched = searchedFolders();
  std::string_view folders = searched;
  const fs::path downloads = text::pathOf(proj_context_get_user_writable_directory(nullptr, 0));
  std::error_code ignored;
  while (!folders.empty()) {
    const fs::path folder = text::pathOf(text::takeField(folders, kFolderSeparator));
    if (folder.is_relative() || folder == downloads) continue;
    if (fs::is_regular_file(folder / kDatabaseFile, ignored)) return (folder / kDatabaseFile).string();
  }
  return {};
}

}  // namespace

bool hasProjDatabase() {
  constexpr std::string_view kHead("SQLite format 3\0", 16);
  std::array<char, kHead.size()> head{};
  std::ifstream file(text::pathOf(findProjDatabase()), std::ios::binary);
  return file.read(head.data(), head.size()) && std::string_view(head.data(), head.size()) == kHead;
}

void confine(pj_ctx* context, ProjFiles& files) {
  proj_context_set_file_finder(context, answerPath, nullptr);
  proj_context_set_fileapi(context, &kFileFunctions, &files);
  text::removeFromEnvironment("PROJ_AUX_DB");   // names further databases
  proj_context_set_enable_network(context, 0);  // looks for PROJ's settings file first
}

void openProjDatabase(pj_ctx* context) {
  if (proj_context_get_database_path(context) != nullptr) return;
  proj_context_set_database_path(context, findProjDatabase().c_str(), nullptr, nullptr);
}

}  // namespace tovak::engine
