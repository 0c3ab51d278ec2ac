/// An environment variable that has a value set by the test until the end of its scope.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

#include "support/system.h"

namespace tovak::tests {

class EnvironmentVariable {
 public:
  /// A null value takes the variable away.
  EnvironmentVariable(const char* name, const char* value) : name_(name) {
    if (const char* const before = std::getenv(name)) before_ = before;
    setVariable(name, value);
  }
  EnvironmentVariable(const char* name, const std::string& value) : EnvironmentVariable(name, value.c_str()) {}
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
  ~EnvironmentVariable() { setVariable(name_, before_ ? before_->c_str() : nullptr); }

 private:
  const char* name_;
  std::optional<std::string> before_;
};

}  // namespace tovak::tests
