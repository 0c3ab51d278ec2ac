#include "support/temporary_folder.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "support/system.h"
#include "text/native_path.h"

namespace tovak::tests {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() : path_(makeTemporaryFolder()) {}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string TemporaryFolder::write(std::string_view name, std::string_view contents) const {
  std::ofstream(path_ / name, std::ios::binary) << contents;
  return file(name);
}

std::vector<std::string> TemporaryFolder::names() const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(path_)) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

std::string contentsOf(const std::string& fileName) {
  std::ifstream in(text::pathOf(fileName), std::ios::binary);
  if (!in) return "(no file)";
  return withPlainLineEnds({std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()});
}

}  // namespace tovak::tests
