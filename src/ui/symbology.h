/// Colors and symbols that mapping programs know, as people choose from them.
#pragma once

#include <array>
#include <string_view>

namespace tovak::ui {

struct MaptechColor {
  std::string_view name;
  std::string_view number;  ///< hexadecimal: blue, green, red from its highest byte
};

extern const std::array<MaptechColor, 16> kMaptechColors;

/// A symbol's number is its position.
extern const std::array<std::string_view, 45> kMaptechSymbols;

/// In alphabetical order.
extern const std::array<std::string_view, 56> kDelormeSymbols;

}  // namespace tovak::ui
