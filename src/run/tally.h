/// How many source records share a property, and where the first of them is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tovak::run {

struct TalliedLine {
  std::uint64_t line = 0;
  std::string file = {};    ///< where the source is several files; else empty
  std::string reason = {};  ///< of a point that was refused
};

struct Tally {
  std::uint64_t count = 0;
  std::uint64_t firstLine = 0;
  std::string firstFile = {};  ///< of that line, where the source is several files; else empty
  std::size_t keeps = 0;       ///< how many of the lines are kept
  std::vector<TalliedLine> lines = {};
};

void addTo(Tally& tally, std::uint64_t line, std::string_view file = {});

}  // namespace tovak::run
