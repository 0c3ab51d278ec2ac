/// How many source records share a property, and where the first of them is.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tovak::run {

struct Tally {
  std::uint64_t count = 0;
  std::uint64_t firstLine = 0;
  std::string firstFile = {};  ///< of that line, where the source is several files; else empty
};

void addTo(Tally& tally, std::uint64_t line, std::string_view file = {});

}  // namespace tovak::run
