#include "run/default_numbering.h"

#include <cstdint>
#include <limits>

#include "text/number.h"

namespace tovak::run {

void takeDefaultNumber(RunSettings& settings, std::string& pointNumber) {
  pointNumber.clear();
  text::appendWhole(pointNumber, settings.NextPointNumber);
  const std::int64_t next = std::int64_t{settings.NextPointNumber} + settings.PointNumberIncrement;
  // The counter stays where it is rather than reach the end of its range.
  using Limits = std::numeric_limits<std::int32_t>;
  if (next < Limits::max() && next >= Limits::min()) settings.NextPointNumber = static_cast<std::int32_t>(next);
}

}  // namespace tovak::run
