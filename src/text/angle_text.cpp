#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

#include "text/angle.h"
#include "text/angle_parts.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::text {
namespace {

constexpr double kMostDegrees = 360.0;

/// What people write after a part, in the two common encodings. A mark comes before any shorter one that it begins
/// with.
constexpr std::string_view kDegreeMarks[] = {"\xC2\xB0", "\xC2\xBA", "\xB0", "\xBA", "d", "D"};
constexpr std::string_view kMinuteMarks[] = {"\xE2\x80\xB2", "\xE2\x80\x99", "'", "m", "M"};
constexpr std::string_view kSecondMarks[] = {"\xE2\x80\xB3", "\xE2\x80\x9D", "\"", "''"};

struct Part {
  double value = 0.0;
  bool whole = true;  ///< written without a decimal point
};

/// Scans a text from its beginning.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  std::string_view rest() const { return rest_; }
  bool atEnd() const { return rest_.empty(); }

  bool skipBlanks() {
    const std::size_t before = rest_.size();
    while (rest_.starts_with(' ')) rest_.remove_prefix(1);
    return rest_.size() != before;
  }

  bool skip(std::string_view mark) {
    if (!rest_.starts_with(mark)) return false;
    rest_.remove_prefix(mark.size());
    return true;
  }

  template <std::size_t Count>
  bool skipOneOf(const std::string_view (&marks)[Count]) {
    for (const std::string_view mark : marks) {
      if (skip(mark)) return true;
    }
    return false;
  }

  /// A letter of a hemisphere in either case, or 0.
  char takeHemisphere() {
    const char letter = rest_.empty() ? ' ' : upperCase(rest_.front());
    if (letter != 'N' && letter != 'S' && letter != 'E' && letter != 'W') return 0;
    rest_.remove_prefix(1);
    return letter;
  }

  /// Digits with an optional decimal point; nothing when there are no digits, and then nothing is consumed.
  std::optional<Part> takePart() {
    std::size_t end = rest_.find_first_not_of("0123456789.");
    end = end == std::string_view::npos ? rest_.size() : end;
    const std::string_view text = rest_.substr(0, end);
    const std::optional<double> value = strictNumber(text);
    if (!value) return std::nullopt;
    rest_.remove_prefix(end);
    return Part{.value = *value, .whole = text.find('.') == std::string_view::npos};
  }

 private:
  std::string_view rest_;
};

bool contradicts(char hemisphere, AngleAxis axis) {
  return hemisphere != 0 && hemisphere != (axis == AngleAxis::Latitude ? 'N' : 'W');
}

/// An angle written with anything but the digits of one number.
class WrittenAngle {
 public:
  explicit WrittenAngle(std::string_view text) : scanner_(text) {}

  /// Nothing when the text is not written as an angle in parts, with a degree sign or with a hemisphere.
  std::optional<AngleReading> read(AngleForm form, AngleAxis axis) {
    scanner_.skipBlanks();
    hemisphere_ = scanner_.takeHemisphere();
    scanner_.skipBlanks();
    const bool negative = scanner_.skip("-");
    if (!negative) scanner_.skip("+");
    if (!takeParts()) return std::nullopt;
    scanner_.skipBlanks();
    if (hemisphere_ == 0) hemisphere_ = scanner_.takeHemisphere();
    scanner_.skipBlanks();
    if (count_ == 1 && hemisphere_ == 0 && !degreeSign_) return std::nullopt;
    AngleReading reading = reading_(form);
    reading.textBehind = !scanner_.atEnd();
    if (negative) reading.degrees = -reading.degrees;
    if (contradicts(hemisphere_, axis)) reading.fault = AngleFault::OtherHemisphere;
    return reading;
  }

 private:
  /// Takes up to three parts; false when the first is not one. A part with decimals is the last.
  bool takeParts() {
    const std::optional<Part> degrees = scanner_.takePart();
    if (!degrees) return false;
    parts_[count_++] = degrees->value;
    if (!degrees->whole || degrees->value > kMostDegrees) {
      degreeSign_ = scanner_.skipOneOf(kDegreeMarks);
      return true;
    }
    if (const std::optional<Part> minutes = takeNextPart(kDegreeMarks, degreeSign_); minutes && minutes->whole) {
      bool minuteSign = false;
      if (takeNextPart(kMinuteMarks, minuteSign)) takeSecondsMark();
    }
    return true;
  }

  /// The part after a mark, a hyphen, a colon or blanks. A separator with no part after it is not consumed, except a
  /// mark that belongs to the part before.
  template <std::size_t Count>
  std::optional<Part> takeNextPart(const std::string_view (&marks)[Count], bool& marked) {
    Scanner ahead = scanner_;
    bool separated = ahead.skipBlanks();
    marked = ahead.skipOneOf(marks);
    if (marked) scanner_ = ahead;
    separated = marked || ahead.skip("-") || ahead.skip(":") || separated;
    ahead.skipBlanks();
    if (!separated) return std::nullopt;
    const std::optional<Part> part = ahead.takePart();
    if (!part) return std::nullopt;
    scanner_ = ahead;
    parts_[count_++] = part->value;
    if (!part->whole && count_ == 2) scanner_.skipOneOf(kMinuteMarks);
    return part;
  }

  /// An "s" stands for seconds only where the degrees have their letter too; elsewhere it means south.
  void takeSecondsMark() {
    Scanner ahead = scanner_;
    ahead.skipBlanks();
    if (ahead.skipOneOf(kSecondMarks) || (degreeSign_ && (ahead.skip("s") || ahead.skip("S")))) scanner_ = ahead;
  }

  AngleReading reading_(AngleForm form) const {
    if (count_ == 1 && !degreeSign_) return interpretAngle(parts_[0], form);
    if (!std::isfinite(parts_[0])) return {.fault = AngleFault::TooLarge};
    return fromParts({.degrees = parts_[0], .minutes = parts_[1], .seconds = parts_[2]});
  }

  Scanner scanner_;
  std::array<double, 3> parts_{};
  std::size_t count_ = 0;
  bool degreeSign_ = false;
  char hemisphere_ = 0;
};

}  // namespace

std::string_view angleFaultText(AngleFault fault) {
  switch (fault) {
    case AngleFault::None:
      break;
    case AngleFault::NotBelow60:
      return "The minutes or seconds of a latitude or longitude are not below 60.";
    case AngleFault::TooLarge:
      return "A latitude or longitude is too large to be a number.";
    case AngleFault::OtherHemisphere:
      return "The hemisphere of a latitude or longitude is not north or west.";
  }
  return {};
}

AngleReading readAngle(std::string_view text, AngleForm form, AngleAxis axis, std::string& scratch) {
  const LeadingNumber number = parseLeadingNumber(text);
  // Most angles are a number and nothing else.
  if (number.length == text.size()) return interpretAngle(number.value, form);
  if (const std::optional<AngleReading> written = WrittenAngle(text).read(form, axis)) return *written;
  const std::string_view digits = withoutBlanks(text, scratch);
  const LeadingNumber joined = parseLeadingNumber(digits);
  AngleReading reading = interpretAngle(joined.value, form);
  reading.textBehind = joined.length != 0 && joined.length != digits.size();
  return reading;
}

}  // namespace tovak::text
