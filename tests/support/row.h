/// Values in one line of text, so that they can be compared at once.
#pragma once

#include <iomanip>
#include <locale>
#include <map>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>

namespace tovak::tests {

/// Values as one text, "|" between them, enumerations as their numbers.
template <typename... Values>
std::string row(const Values&... values) {
  std::ostringstream out;
  out.imbue(std::locale::classic());  // the tests set the global one to that of their environment
  out << std::setprecision(15);
  const char* separator = "";
  const auto printable = [](const auto& value) -> decltype(auto) {
    using Value = std::decay_t<decltype(value)>;
    if constexpr (std::is_enum_v<Value>) {
      return static_cast<int>(value);
    } else {
      return value;
    }
  };
  ((out << std::exchange(separator, "|") << printable(values)), ...);
  return out.str();
}

/// Values by their names.
using Values = std::map<std::string, std::string>;

/// "name=value" of each that is no longer as it was, a blank between them.
inline std::string changes(const Values& before, const Values& after) {
  std::string text;
  for (const auto& [name, value] : after) {
    if (before.at(name) != value) text += (text.empty() ? "" : " ") + name + "=" + value;
  }
  return text;
}

}  // namespace tovak::tests
