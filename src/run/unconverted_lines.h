/// The lines of a source that did not become points of the target, for a list.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "run/record_counts.h"
#include "run/run_settings.h"

namespace tovak::run {

/// As many lines are listed at most; the rest is only counted.
inline constexpr std::size_t kListedLines = 10000;

struct UnconvertedLine {
  std::uint64_t line = 0;  ///< of a typed point its position
  std::string file;        ///< of that line where the source is several files; else empty
  std::string text;        ///< unchanged, but cut after 500 bytes; empty where it cannot be read again
  std::string reason;      ///< why the point was refused, or what the line is instead of a point
  bool refused = false;    ///< else passed over
};

struct UnconvertedLines {
  std::vector<UnconvertedLine> lines;  ///< in the order of the source
  std::uint64_t count = 0;             ///< of all, listed or not
};

/// The lines that the tallies of a run kept. Their texts are read from the source once more, if it is an ordinary file
/// that has not changed.
UnconvertedLines unconvertedLines(const RecordCounts& counts, const RunSettings& settings,
                                  std::size_t most = kListedLines);

}  // namespace tovak::run
