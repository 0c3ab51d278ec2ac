#include "text/native_path.h"

namespace tovak::text {

std::filesystem::path pathOf(std::string_view name) {
  return name;
}

}  // namespace tovak::text
