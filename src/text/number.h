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

/// The number at the head of a text and the number of characters it took, leading blanks included.
struct LeadingNumber {
  double value = 0.0;
  std::size_t length = 0;  ///< 0 when the text does not begin with a number
};

/// The longest number at the head of `text`: leading blanks are skipped, then an optional sign, digits with an optional
/// ".", and an optional exponent ("e" or "E", optional sign, digits). What follows is ignored. Words such as "nan" and
/// "inf" are no numbers. A number too large for a double is an infinity of its sign.
LeadingNumber parseLeadingNumber(std::string_view text);

/// The leading number of `text`, 0 when there is none.
double leadingNumber(std::string_view text);

/// The value of a text that is a number and nothing else (outer blanks aside), or nothing.
std::optional<double> strictNumber(std::string_view text);

/// The value of a text that is a number and nothing else (outer blanks aside), its whole part either plain or in groups
/// of three digits separated by commas, as in "-1,234,567.89"; or nothing. "." is the decimal point whatever the
/// locale, so a decimal comma ("0,125", "12,5") is no number. `scratch` holds the number without its commas.
std::optional<double> thousandsNumber(std::string_view text, std::string& scratch);

/// The nearest whole number, halves to the even one.
double roundHalfEven(double value);

/// The nearest whole number (halves to even) when it fits the type, or nothing.
std::optional<std::int16_t> toInt16(double value);
std::optional<std::int32_t> toInt32(double value);

/// Codes of `appendPrecision`: how precisely a number is written.
inline constexpr int kThreeDecimals = 0;
inline constexpr int kWholeUnits = 3;

/// Appends `value` with exactly `decimals` decimals (0 to 9), rounded half to even on the scaled value. Zero never
/// carries a sign. A value whose scaled magnitude is 2^53 or more is no longer distinguishable at that precision and is
/// printed as it is; one that is not finite, such as the value of the text "1e999", is no number and prints as nothing.
void appendFixed(std::string& out, double value, int decimals);

/// Appends `value` in the precision of `code`: 0, 1, 2 give three, two, one decimals; 3, 4, 5 give whole units, tens,
/// hundreds, and so on. Rounds half to even.
void appendPrecision(std::string& out, double value, int code);

/// The number formatter of all point writers: `appendPrecision` as a value.
std::string formatPrecision(double value, int code);

/// Appends a whole number in plain decimal.
void appendWhole(std::string& out, std::int64_t value);

/// How many of three possible decimals are missing in a number's text: 3 without a decimal point, 2 with one decimal,
/// 1 with two, 0 with three or more. A text without a number gives 0, so that nothing is rounded for want of it.
int missingDecimals(std::string_view text);

}  // namespace tovak::text
