#include "text/system_error.h"

#include <system_error>

namespace tovak::text {

std::string systemErrorText(const std::string& fileName, int errorNumber) {
  return fileName + ": " + std::generic_category().message(errorNumber);
}

}  // namespace tovak::text
