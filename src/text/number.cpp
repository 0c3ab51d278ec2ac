#include "text/number.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include "text/strings.h"

namespace tovak::text {
namespace {

constexpr double kExactWholeLimit = 9007199254740992.0;  // 2^53
constexpr std::size_t kThousandsGroup = 3;
constexpr std::array<double, 10> kPowersOfTen = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};

/// "00", "01" and so on to "99", one behind the other: half as many divisions as digit by digit.
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

/// The end of the digits with their optional point that begin at `at`; `at` itself when there is no digit.
std::size_t endOfDecimal(std::string_view text, std::size_t at) {
  const std::size_t wholeEnd = skipDigits(text, at);
  if (wholeEnd == text.size() || text[wholeEnd] != '.') return wholeEnd;
  const std::size_t fractionEnd = skipDigits(text, wholeEnd + 1);
  return fractionEnd == at + 1 ? at : fractionEnd;
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
  std::size_t start = 0;
  while (start < text.size() && text[start] == ' ') ++start;
  std::size_t digits = start;
  const bool negative = digits < text.size() && text[digits] == '-';
  if (digits < text.size() && (text[digits] == '-' || text[digits] == '+')) ++digits;
  if (endOfDecimal(text, digits) == digits) return {};

  const char* const first = text.data() + digits;
  double magnitude = 0.0;
  const auto [end, error] = std::from_chars(first, text.data() + text.size(), magnitude);
  if (error == std::errc::result_out_of_range) {
    // The conversion does not tell too large from too small; the exponent's sign does, or the whole part without one.
    const std::string_view number(first, static_cast<std::size_t>(end - first));
    const std::size_t exponent = number.find_first_of("eE");
    const bool tiny = exponent == std::string_view::npos ? number.front() == '.' || number.front() == '0'
                                                         : number[exponent + 1] == '-';
    magnitude = tiny ? 0.0 : std::numeric_limits<double>::infinity();
  }
  return {.value = negative ? -magnitude : magnitude, .length = static_cast<std::size_t>(end - text.data())};
}

double leadingNumber(std::string_view text) {
  return parseLeadingNumber(text).value;
}

std::optional<double> strictNumber(std::string_view text) {
  const std::string_view trimmed = trimBlanks(text);
  const LeadingNumber number = parseLeadingNumber(trimmed);
  if (number.length == 0 || number.length != trimmed.size()) return std::nullopt;
  return number.value;
}

std::optional<double> thousandsNumber(std::string_view text, std::string& scratch) {
  const std::string_view number = trimBlanks(text);
  const std::size_t first = number.starts_with('-') || number.starts_with('+') ? 1 : 0;
  std::size_t end = skipDigits(number, first);
  if (end == number.size() || number[end] != ',') return strictNumber(number);
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
  // Room for the sign, 16 digits, the point and, in front of small numbers, "0." with its zeros.
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

void appendPrecision(std::string& out, double value, int code) {
  if (code < kWholeUnits) {
    appendFixed(out, value, kWholeUnits - code);
    return;
  }
  double step = 1.0;
  for (int i = kWholeUnits; i < code; ++i) step *= 10.0;
  appendFixed(out, std::nearbyint(value / step) * step, 0);
}

std::string formatPrecision(double value, int code) {
  std::string out;
  appendPrecision(out, value, code);
  return out;
}

int missingDecimals(std::string_view text) {
  const LeadingNumber number = parseLeadingNumber(text);
  if (number.length == 0) return 0;
  const std::size_t point = text.substr(0, number.length).find('.');
  if (point == std::string_view::npos) return 3;
  const auto decimals = static_cast<int>(skipDigits(text, point + 1) - point - 1);
  return decimals >= 3 ? 0 : 3 - decimals;
}

}  // namespace tovak::text
