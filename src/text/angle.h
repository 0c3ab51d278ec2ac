/// Angles as point files write them, and angles as they are printed. One pair of functions for every format.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tovak::text {

/// How a number alone in a latitude or longitude field is meant.
enum class AngleForm : char {
  /// Packed degrees, minutes and seconds: DDMMSS.sss, or DD.MMSSsss when the absolute value is below 1000.
  DegreesMinutesSeconds = 'S',
  DecimalDegrees = 'D',
  /// Packed degrees and decimal minutes: DDMM.mmmm.
  DegreesDecimalMinutes = 'M',
};

/// Why a text or number is not a usable angle.
enum class AngleFault : std::uint8_t {
  None,
  NotBelow60,       ///< minutes or seconds of 60 or more
  TooLarge,         ///< not a finite number
  OtherHemisphere,  ///< marked as south or east, or with a letter of the other axis
};

/// The reason in words; empty for `None`.
std::string_view angleFaultText(AngleFault fault);

/// A latitude or longitude as it was read.
struct AngleReading {
  double degrees = 0.0;  ///< decimal degrees with the sign of the text; only without a fault
  AngleFault fault = AngleFault::None;
  bool textBehind = false;   ///< something else stands after the angle
  bool shortPacked = false;  ///< a packed number below 100, taken as DD.MMSSsss: it may be decimal degrees
};

/// A number in one of the forms.
AngleReading interpretAngle(double value, AngleForm form);

/// A number that is DDMMSS.sss whatever its magnitude, as in files with fixed columns.
AngleReading unpackSeconds(double packed);

enum class AngleAxis : std::uint8_t { Latitude, Longitude };

/// The angle at the head of a text, outer blanks aside.
///
/// A single number is read in the given form. An angle whose degrees, minutes and seconds are written apart is read as
/// written whatever the form: "45-12-34.5", "45:12:34.5", "45 3 15.5", "45°12'34.5\"", "45d12m34.5s", "45 12.5"
/// (degrees and minutes). Only the last part has decimals. "N" or "W" may come before or after; any other hemisphere
/// letter is a fault. Other blanks inside a number are ignored. A text without a number is an angle of 0. `scratch` is
/// used for rare texts.
AngleReading readAngle(std::string_view text, AngleForm form, AngleAxis axis, std::string& scratch);

/// An angle rounded to 0.00001 second and only then split, so that 59.999996 seconds carry into the minutes.
struct SplitAngle {
  bool negative = false;  ///< never set for an angle that rounds to zero
  std::int64_t degrees = 0;
  int minutes = 0;             ///< 0 to 59
  int hundredThousandths = 0;  ///< of a second, 0 to 5999999
};

SplitAngle splitAngle(double decimalDegrees);

/// At least two digits, with "-" before a negative angle.
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
/// The whole angle as DD.dddddddd, about a millimetre.
void appendFineDegrees(std::string& out, double decimalDegrees);
/// The whole angle as D-MM-SS.ss, rounded to 0.01 second: "-0-35-12.34". An angle that rounds to zero has no sign.
void appendDashedAngle(std::string& out, double decimalDegrees);

}  // namespace tovak::text
