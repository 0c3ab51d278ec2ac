#include "run/tally.h"

namespace tovak::run {

void addTo(Tally& tally, std::uint64_t line, std::string_view file) {
  if (tally.lines.size() < tally.keeps) tally.lines.push_back({.line = line, .file = std::string(file)});
  if (tally.count++ != 0) return;
  tally.firstLine = line;
  tally.firstFile = file;
}

}  // namespace tovak::run
