#include "text/angle.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "text/angle_parts.h"
#include "text/number.h"

namespace tovak::text {
namespace {

constexpr std::int64_t kUnitsPerSecond = 100000;
constexpr std::int64_t kUnitsPerMinute = 60 * kUnitsPerSecond;
constexpr std::int64_t kUnitsPerDegree = 60 * kUnitsPerMinute;
constexpr std::uint32_t kHundredthsPerMinute = 60 * 100;
constexpr std::int64_t kHundredthsPerDegree = 60 * kHundredthsPerMinute;

/// Below this magnitude a packed angle has its point after the degrees.
constexpr double kSmallestPackedSeconds = 1000.0;
/// No latitude or longitude in this part of the world is larger, so a number below it may be decimal degrees too.
constexpr double kLargestShort = 100.0;

void appendPadded(std::string& out, std::int64_t value, int width) {
  std::array<char, 8> digits;
  for (int i = width - 1; i >= 0; --i) {
    digits[static_cast<std::size_t>(i)] = static_cast<char>('0' + value % 10);
    value /= 10;
  }
  out.append(digits.data(), static_cast<std::size_t>(width));
}

/// The magnitude of an angle in whole units.
std::int64_t magnitudeIn(std::int64_t unitsPerDegree, double decimalDegrees) {
  constexpr double kLargestDegrees = 1e9;  // keeps values that are not angles within the range of whole numbers
  const double magnitude = std::min(std::fabs(decimalDegrees), kLargestDegrees);
  return std::llrint(magnitude * static_cast<double>(unitsPerDegree));
}

/// DD.MMSSsss as DDMMSS.sss. Rounded to 1e-9 second, since 45.12 is a hair less in binary and would otherwise read as
/// 11 minutes and 99.99... seconds.
double packedSecondsOf(double degreesFirst) {
  return roundHalfEven(degreesFirst * 1e13) / 1e9;
}

AngleReading fromPackedSeconds(double packed) {
  const double degrees = std::floor(packed / 10000.0);
  const double belowDegrees = packed - degrees * 10000.0;
  const double minutes = std::floor(belowDegrees / 100.0);
  const double seconds = belowDegrees - minutes * 100.0;
  return fromParts({.degrees = degrees, .minutes = minutes, .seconds = seconds});
}

AngleReading fromPackedMinutes(double packed) {
  const double degrees = std::floor(packed / 100.0);
  return fromParts({.degrees = degrees, .minutes = packed - degrees * 100.0});
}

AngleReading fromMagnitude(double magnitude, AngleForm form) {
  switch (form) {
    case AngleForm::DecimalDegrees:
      break;
    case AngleForm::DegreesDecimalMinutes:
      return fromPackedMinutes(magnitude);
    case AngleForm::DegreesMinutesSeconds: {
      if (magnitude >= kSmallestPackedSeconds) return fromPackedSeconds(magnitude);
      AngleReading reading = fromPackedSeconds(packedSecondsOf(magnitude));
      reading.shortPacked = magnitude < kLargestShort;
      return reading;
    }
  }
  return {.degrees = magnitude};
}

}  // namespace

AngleReading interpretAngle(double value, AngleForm form) {
  if (!std::isfinite(value)) return {.fault = AngleFault::TooLarge};
  AngleReading reading = fromMagnitude(std::fabs(value), form);
  reading.degrees = std::copysign(reading.degrees, value);
  return reading;
}

AngleReading unpackSeconds(double packed) {
  if (!std::isfinite(packed)) return {.fault = AngleFault::TooLarge};
  AngleReading reading = fromPackedSeconds(std::fabs(packed));
  reading.degrees = std::copysign(reading.degrees, packed);
  return reading;
}

SplitAngle splitAngle(double decimalDegrees) {
  std::int64_t units = magnitudeIn(kUnitsPerDegree, decimalDegrees);
  SplitAngle angle;
  angle.negative = decimalDegrees < 0 && units != 0;
  angle.degrees = units / kUnitsPerDegree;
  units %= kUnitsPerDegree;
  angle.minutes = static_cast<int>(units / kUnitsPerMinute);
  angle.hundredThousandths = static_cast<int>(units % kUnitsPerMinute);
  return angle;
}

void appendDegrees(std::string& out, const SplitAngle& angle) {
  if (angle.negative) out += '-';
  if (angle.degrees < 10) out += '0';
  appendWhole(out, angle.degrees);
}

void appendMinutes(std::string& out, const SplitAngle& angle) {
  appendPadded(out, angle.minutes, 2);
}

void appendWholeSeconds(std::string& out, const SplitAngle& angle) {
  appendPadded(out, angle.hundredThousandths / kUnitsPerSecond, 2);
}

void appendSecondsFraction(std::string& out, const SplitAngle& angle) {
  appendPadded(out, angle.hundredThousandths % kUnitsPerSecond, 5);
}

void appendSeconds(std::string& out, const SplitAngle& angle) {
  appendWholeSeconds(out, angle);
  out += '.';
  appendSecondsFraction(out, angle);
}

void appendPackedAngle(std::string& out, double decimalDegrees) {
  const SplitAngle angle = splitAngle(decimalDegrees);
  appendDegrees(out, angle);
  appendMinutes(out, angle);
  appendSeconds(out, angle);
}

void appendSpacedAngle(std::string& out, double decimalDegrees) {
  const SplitAngle angle = splitAngle(decimalDegrees);
  appendDegrees(out, angle);
  out += ' ';
  appendMinutes(out, angle);
  out += ' ';
  appendSeconds(out, angle);
}

void appendDecimalDegrees(std::string& out, double decimalDegrees) {
  appendFixed(out, decimalDegrees, 7);
}

void appendFineDegrees(std::string& out, double decimalDegrees) {
  appendFixed(out, decimalDegrees, 8);
}

void appendDashedAngle(std::string& out, double decimalDegrees) {
  const std::int64_t hundredths = magnitudeIn(kHundredthsPerDegree, decimalDegrees);
  const bool negative = decimalDegrees < 0 && hundredths != 0;
  std::int64_t degrees = hundredths / kHundredthsPerDegree;
  const auto rest = static_cast<std::uint32_t>(hundredths - degrees * kHundredthsPerDegree);
  std::array<char, 32> text;
  char* at = text.data() + text.size();
  const auto put = [&at](std::uint32_t value, char before) {
    *--at = static_cast<char>('0' + value % 10);
    *--at = static_cast<char>('0' + value / 10);
    *--at = before;
  };
  put(rest % 100, '.');
  put(rest % kHundredthsPerMinute / 100, '-');
  put(rest / kHundredthsPerMinute, '-');
  do {
    *--at = static_cast<char>('0' + degrees % 10);
    degrees /= 10;
  } while (degrees != 0);
  // About half of all points have a sign, in no order that a processor could foresee: no branch.
  *--at = '-';
  at += negative ? 0 : 1;
  out.append(at, text.data() + text.size());
}

}  // namespace tovak::text
