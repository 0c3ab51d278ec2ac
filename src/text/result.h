/// The result of an operation that can fail: a value, or the reason in words.
#pragma once

#include <optional>
#include <string>
#include <utility>

namespace tovak::text {

template <typename T>
struct Result {
  std::optional<T> value = {};
  std::string error = {};  ///< empty when there is a value

  Result() = default;
  Result(T result) : value(std::move(result)) {}  // NOLINT(google-explicit-constructor): a value is a result
  static Result failure(const std::string& reason) {
    Result result;
    result.error = reason;
    return result;
  }

  explicit operator bool() const { return value.has_value(); }
  T& operator*() { return *value; }
  const T& operator*() const { return *value; }
  T* operator->() { return &*value; }
  const T* operator->() const { return &*value; }
};

}  // namespace tovak::text
