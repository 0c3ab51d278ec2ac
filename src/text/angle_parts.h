/// Degrees, minutes and seconds that belong together; what the two ways of reading an angle share.
#pragma once

#include "text/angle.h"

namespace tovak::text {

/// Not negative.
struct AngleParts {
  double degrees = 0.0;
  double minutes = 0.0;
  double seconds = 0.0;
};

/// Decimal degrees, or the fault that minutes or seconds are 60 or more.
inline AngleReading fromParts(const AngleParts& parts) {
  if (parts.minutes >= 60.0 || parts.seconds >= 60.0) return {.fault = AngleFault::NotBelow60};
  return {.degrees = parts.degrees + parts.minutes / 60.0 + parts.seconds / 3600.0};
}

}  // namespace tovak::text
