/// An environment variable that has a value set by the test until the end of its scope.
#pragma once

#include <optional>
#include <string>

#include <stdlib.h>

namespace tovak::tests {

class EnvironmentVariable {
 public:
  /// A null value takes the variable away.
  EnvironmentVariable(const char* name, const char* value) : name_(name) {
    if (const char* const before = getenv(name)) before_ = before;
    set(value);
  }
  EnvironmentVariable(const char* name, const std::string& value) : EnvironmentVariable(name, value.c_str()) {}
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
  ~EnvironmentVariable() { set(before_ ? before_->c_str() : nullptr); }

 private:
  void set(const char* value) {
    if (value != nullptr) {
      setenv(name_, value, 1);
    } else {
      unsetenv(name_);
    }
  }

  const char* name_;
  std::optional<std::string> before_;
};

}  // namespace tovak::tests
