#include "text/number.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "text/strings.h"

namespace tovak::text {
namespace {

constexpr double kExactWholeLimit = 9007199254740992.0;  // 2^53
constexpr std::size_t kThousandsGroup = 3;
/// Those that a double holds exactly.
constexpr std::array<double, 23> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                                 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// "00", "01" and so on to "99", one after the other: half as many divisions as digit by digit.
constexpr std::array<char, 200> kTwoDigits = [] {
  std::array<char, 200> digits{};
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    digits[i] = static_cast<char>('0' + i / 20);
    digits[i + 1] = static_cast<char>('0' + i / 2 % 10);
  }
  return digits;
}();

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

std::size_t skipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && isDigit(text[at])) ++at;
  return at;
}

/// A number without its sign, in its parts.
struct Decimal {
  const char* first = nullptr;
  const char* wholeEnd = nullptr;
  const char* fraction = nullptr;  ///< after the point; `wholeEnd` without one
  const char* digitsEnd = nullptr;
  const char* end = nullptr;
  std::uint64_t digits = 0;   ///< all of them as one whole number, for up to 19 digits
  std::int64_t exponent = 0;  ///< as it is written; an exponent beyond the range of a double is limited

  std::ptrdiff_t decimals() const { return digitsEnd - fraction; }
  std::ptrdiff_t digitCount() const { return wholeEnd - first + decimals(); }
};

/// Takes the digits at `at` as the last ones of `number` and returns where they end.
const char* takeDigits(const char* at, const char* end, std::uint64_t& number) {
  for (; at != end; ++at) {
    const auto digit = static_cast<std::uint64_t>(static_cast<unsigned char>(*at)) - '0';
    if (digit > 9) break;
    number = number * 10 + digit;
  }
  return at;
}

/// With the exponent at the end of the digits, when one with a digit is there.
Decimal withExponent(Decimal decimal, const char* end) {
  constexpr std::int64_t kEnough = 1'000'000'000;
  const char* at = decimal.digitsEnd + 1;
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  std::int64_t exponent = 0;
  const char* const first = at;
  for (; at != end && isDigit(*at); ++at) exponent = std::min(exponent * 10 + (*at - '0'), kEnough);
  if (at == first) return decimal;
  decimal.exponent = negative ? -exponent : exponent;
  decimal.end = at;
  return decimal;
}

Decimal readDecimal(const char* at, const char* end) {
  Decimal decimal;
  decimal.first = at;
  decimal.wholeEnd = decimal.fraction = decimal.digitsEnd = takeDigits(at, end, decimal.digits);
  if (decimal.wholeEnd != end && *decimal.wholeEnd == '.') {
    decimal.fraction = decimal.wholeEnd + 1;
    decimal.digitsEnd = takeDigits(decimal.fraction, end, decimal.digits);
  }
  decimal.end = decimal.digitsEnd;
  const bool exponent = decimal.end != end && (*decimal.end == 'e' || *decimal.end == 'E');
  return exponent ? withExponent(decimal, end) : decimal;
}

/// Whether a number outside the range of a double is too large rather than too small.
bool isTooLarge(Decimal decimal) {
  const char* digit = decimal.first;
  while (digit != decimal.digitsEnd && (*digit == '0' || *digit == '.')) ++digit;
  const std::ptrdiff_t places = digit < decimal.wholeEnd ? decimal.wholeEnd - digit : decimal.fraction - digit;
  return places + decimal.exponent > 0;
}

double roundedValueOf(Decimal decimal) {
  double value = 0.0;
  const std::from_chars_result result = std::from_chars(decimal.first, decimal.end, value);
  if (result.ec != std::errc::result_out_of_range) return value;
  return isTooLarge(decimal) ? std::numeric_limits<double>::infinity() : 0.0;
}

/// By value, here and above: a number that is not referred to stays in registers.
double valueOf(Decimal decimal) {
  constexpr std::ptrdiff_t kMostDigits = 19;
  constexpr auto kLargestPower = static_cast<std::int64_t>(kPowersOfTen.size()) - 1;
  const std::int64_t power = decimal.exponent - decimal.decimals();
  // Two exact doubles have a product or quotient that is rounded once, to the nearest.
  const bool exact = FLT_EVAL_METHOD == 0 && decimal.digitCount() <= kMostDigits &&
                     decimal.digits <= static_cast<std::uint64_t>(kExactWholeLimit) && power >= -kLargestPower &&
                     power <= kLargestPower;
  if (exact) {
    const auto digits = static_cast<double>(static_cast<std::int64_t>(decimal.digits));
    const double scale = kPowersOfTen[static_cast<std::size_t>(std::abs(power))];
    return power < 0 ? digits / scale : digits * scale;
  }
  return roundedValueOf(decimal);
}

void appendAsItIs(std::string& out, double value, int decimals) {
  if (!std::isfinite(value)) return;
  std::array<char, std::numeric_limits<double>::max_exponent10 + 16> digits;
  const auto [end, error] =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, decimals);
  if (error == std::errc()) out.append(digits.data(), end);
}

template <typename Whole>
std::optional<Whole> toWhole(double value) {
  const double whole = roundHalfEven(value);
  if (!(whole >= std::numeric_limits<Whole>::min() && whole <= std::numeric_limits<Whole>::max())) return std::nullopt;
  return static_cast<Whole>(whole);
}

}  // namespace

LeadingNumber parseLeadingNumber(std::string_view text) {
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end && *at == ' ') ++at;
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  const Decimal decimal = readDecimal(at, end);
  if (decimal.digitCount() == 0) return {};
  const double magnitude = valueOf(decimal);
  return {.value = negative ? -magnitude : magnitude,
          .length = static_cast<std::size_t>(decimal.end - text.data()),
          .decimals = static_cast<std::size_t>(decimal.decimals())};
}

double leadingNumber(std::string_view text) {
  return parseLeadingNumber(text).value;
}

LeadingNumber parseLeadingNumber(std::string_view text, bool& doubtful) {
  const LeadingNumber number = parseLeadingNumber(text);
  if (number.length != text.size() && text.find_first_not_of(" \t", number.length) != std::string_view::npos) {
    doubtful = true;
  }
  return number;
}

double leadingNumber(std::string_view text, bool& doubtful) {
  return parseLeadingNumber(text, doubtful).value;
}

std::optional<double> strictNumber(std::string_view text) {
  const std::string_view trimmed = trimBlanks(text);
  const LeadingNumber number = parseLeadingNumber(trimmed);
  if (number.length == 0 || number.length != trimmed.size()) return std::nullopt;
  return number.value;
}

std::optional<double> thousandsNumber(std::string_view text, std::string& scratch) {
  const std::string_view number = trimBlanks(text);
  const LeadingNumber plain = parseLeadingNumber(number);
  if (plain.length == number.size() && plain.length != 0) return plain.value;
  const std::size_t first = number.starts_with('-') || number.starts_with('+') ? 1 : 0;
  std::size_t end = skipDigits(number, first);
  if (end == number.size() || number[end] != ',') return std::nullopt;
  const std::string_view leadingGroup = number.substr(first, end - first);
  if (leadingGroup.empty() || leadingGroup.size() > kThousandsGroup || leadingGroup == "0") return std::nullopt;
  scratch = number.substr(0, end);
  while (end < number.size() && number[end] == ',') {
    const std::size_t group = end + 1;
    end = skipDigits(number, group);
    if (end - group != kThousandsGroup) return std::nullopt;
    scratch += number.substr(group, kThousandsGroup);
  }
  scratch += number.substr(end);
  return strictNumber(scratch);
}

double roundHalfEven(double value) {
  return std::nearbyint(value);
}

std::optional<std::int16_t> toInt16(double value) {
  return toWhole<std::int16_t>(value);
}

std::optional<std::int32_t> toInt32(double value) {
  return toWhole<std::int32_t>(value);
}

void appendWhole(std::string& out, std::int64_t value) {
  std::array<char, 24> digits;
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  out.append(digits.data(), end);
}

void appendFixed(std::string& out, double value, int decimals) {
  const double scaled = std::nearbyint(value * kPowersOfTen[static_cast<std::size_t>(decimals)]);
  if (!(std::fabs(scaled) < kExactWholeLimit)) {
    appendAsItIs(out, value, decimals);
    return;
  }
  // Room for the sign, 16 digits, the point and, before small numbers, "0." with its zeros.
  std::array<char, 32> buffer;
  char* const end = buffer.data() + buffer.size();
  char* at = end;
  auto rest = static_cast<std::uint64_t>(std::fabs(scaled));
  const auto putDigit = [&at, &rest] {
    *--at = static_cast<char>('0' + rest % 10);
    rest /= 10;
  };
  const auto putTwoDigits = [&at, &rest] {
    const auto pair = static_cast<std::size_t>(rest % 100);
    rest /= 100;
    at -= 2;
    std::memcpy(at, &kTwoDigits[2 * pair], 2);
  };
  for (int i = decimals; i > 1; i -= 2) putTwoDigits();
  if (decimals % 2 != 0) putDigit();
  if (decimals > 0) *--at = '.';
  while (rest >= 100) putTwoDigits();
  if (rest >= 10) {
    putTwoDigits();
  } else {
    putDigit();
  }
  if (scaled < 0) *--at = '-';
  out.append(at, end);
}

void formatPrecision(std::string& out, double value, Accuracy accuracy) {
  constexpr int kUnit = static_cast<int>(Accuracy::Unit);
  const int place = static_cast<int>(accuracy);
  if (place <= kUnit) {
    appendFixed(out, value, kUnit - place);
    return;
  }
  const double step = kPowersOfTen[static_cast<std::size_t>(place - kUnit)];
  appendFixed(out, std::nearbyint(value / step) * step, 0);
}

Accuracy writtenAccuracy(const LeadingNumber& number) {
  constexpr std::size_t kAll = 3;
  if (number.length == 0) return Accuracy::Thousandth;
  return static_cast<Accuracy>(kAll - std::min(number.decimals, kAll));
}

}  // namespace tovak::text
