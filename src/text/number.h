/// Numbers from text and into text. Every number that the program reads from a file or prints into one goes through
/// this family; none of it depends on the locale: the decimal point is "." and only `thousandsNumber` knows thousands
/// separators.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tovak::text {

/// The number at the head of a text.
struct LeadingNumber {
  double value = 0.0;
  std::size_t length = 0;    ///< in characters, leading blanks included; 0 when the text does not begin with a number
  std::size_t decimals = 0;  ///< digits after the decimal point
};

/// The longest number at the head of `text`: leading blanks are skipped, then an optional sign, digits with an optional
/// ".", and an optional exponent ("e" or "E", optional sign, digits). What follows is ignored. Words such as "nan" and
/// "inf" are not numbers. The value is the double nearest to the number; one too large for a double is an infinity of
/// its sign.
LeadingNumber parseLeadingNumber(std::string_view text);

/// The leading number of `text`, 0 when there is none.
double leadingNumber(std::string_view text);

/// The same two; `doubtful` is set when the text holds more than a number and blanks (or tabs) around it.
LeadingNumber parseLeadingNumber(std::string_view text, bool& doubtful);
double leadingNumber(std::string_view text, bool& doubtful);

/// The value of a text that is a number and nothing else (outer blanks aside), or nothing.
std::optional<double> strictNumber(std::string_view text);

/// The value of a text that is a number and nothing else (outer blanks aside), its whole part either plain or in groups
/// of three digits separated by commas, as in "-1,234,567.89"; or nothing. "." is the decimal point whatever the
/// locale, so a text with a decimal comma ("0,125", "12,5") is not a number. `scratch` holds the number without its
/// commas.
std::optional<double> thousandsNumber(std::string_view text, std::string& scratch);

/// The nearest whole number, halves to the even one.
double roundHalfEven(double value);

/// The nearest whole number (halves to even) when it fits the type, or nothing.
std::optional<std::int16_t> toInt16(double value);
std::optional<std::int32_t> toInt32(double value);

/// How precisely a number is written: to .001 units, .01, .1, 1 unit, 10 units or 100.
enum class Accuracy : std::uint8_t { Thousandth, Hundredth, Tenth, Unit, Ten, Hundred };

/// Appends `value` with exactly `decimals` decimals (0 to 9), rounded half to even on the scaled value. Zero never
/// carries a sign. A value whose scaled magnitude is 2^53 or more is no longer distinguishable at that precision and is
/// printed as it is; one that is not finite, such as the value of the text "1e999", is not a number and prints as
/// nothing.
void appendFixed(std::string& out, double value, int decimals);

/// The number formatter of all point writers: appends `value` to the accuracy, rounded half to even, with three, two,
/// one or no decimals.
void formatPrecision(std::string& out, double value, Accuracy accuracy);

/// Appends a whole number in plain decimal.
void appendWhole(std::string& out, std::int64_t value);

/// How precisely a number is written: to a unit without a decimal point, to a thousandth with three decimals or more. A
/// text without a number counts as written to a thousandth, so that its absence rounds nothing.
Accuracy writtenAccuracy(const LeadingNumber& number);

}  // namespace tovak::text
