/// Angles as point files write them, and angles as they are printed. One pair of functions for every format.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tovak::text {

/// How a number in a latitude or longitude field is meant.
enum class AngleForm : char {
  /// Packed degrees, minutes and seconds: DDMMSS.sss, or DD.MMSSsss when the absolute value is below 1000.
  DegreesMinutesSeconds = 'S',
  DecimalDegrees = 'D',
  /// Packed degrees and decimal minutes: DDMM.mmmm.
  DegreesDecimalMinutes = 'M',
};

/// The angle in decimal degrees, sign kept; nothing when it is no angle: minutes or seconds of 60 or more, or a value
/// that is not finite.
std::optional<double> interpretAngle(double value, AngleForm form);

/// An angle rounded to 0.00001 second and only then split, so that 59.999996 seconds carry into the minutes.
struct SplitAngle {
  bool negative = false;  ///< never set for an angle that rounds to zero
  std::int64_t degrees = 0;
  int minutes = 0;             ///< 0 to 59
  int hundredThousandths = 0;  ///< of a second, 0 to 5999999
};

SplitAngle splitAngle(double decimalDegrees);

/// At least two digits, "-" in front of a negative angle.
void appendDegrees(std::string& out, const SplitAngle& angle);
/// Two digits.
void appendMinutes(std::string& out, const SplitAngle& angle);
/// The whole seconds, two digits.
void appendWholeSeconds(std::string& out, const SplitAngle& angle);
/// The decimals of the seconds, five digits, without a point.
void appendSecondsFraction(std::string& out, const SplitAngle& angle);
/// Two digits, ".", five decimals.
void appendSeconds(std::string& out, const SplitAngle& angle);

/// The whole angle as DDMMSS.sssss.
void appendPackedAngle(std::string& out, double decimalDegrees);
/// The whole angle as DD MM SS.sssss.
void appendSpacedAngle(std::string& out, double decimalDegrees);
/// The whole angle as DD.ddddddd.
void appendDecimalDegrees(std::string& out, double decimalDegrees);
/// The whole angle as D-MM-SS.ss, rounded to 0.01 second: "-0-35-12.34". An angle that rounds to zero has no sign.
void appendDashedAngle(std::string& out, double decimalDegrees);

}  // namespace tovak::text
