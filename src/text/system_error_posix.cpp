#include <cerrno>

#include "text/system_error.h"

namespace tovak::text {

int lastSystemError() {
  return errno;
}

std::string systemErrorText(const std::string& fileName, int errorNumber) {
  return fileName + ": " + std::generic_category().message(errorNumber);
}

std::string systemErrorText(const std::string& fileName, const std::error_code& error) {
  return fileName + ": " + error.message();
}

}  // namespace tovak::text
