#include <string>

#include "text/native_path.h"

namespace tovak::text {

std::filesystem::path pathOf(std::string_view name) {
  return std::u8string(name.begin(), name.end());
}

}  // namespace tovak::text
