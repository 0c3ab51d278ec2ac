#include "run/projection_box.h"

#include <algorithm>
#include <limits>

#include "run/projection_code.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::run {

std::string projectionText(std::int16_t code, bool metres) {
  std::string text;
  text::appendWhole(text, code);
  if (metres) text += 'M';
  return text;
}

bool marksMetres(std::string_view text) {
  return text::findIgnoringCase(text, "M") != std::string_view::npos;
}

bool namesSystem(std::string_view text) {
  const auto isLetter = [](char c) {
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'z' && lower != 'm';
  };
  return text::parseLeadingNumber(text).length == 0 && std::ranges::any_of(text, isLetter);
}

ProjectionBox typeProjection(const ProjectionBox& before, std::string_view text, bool overNumber) {
  if (namesSystem(text)) return {.code = kNoProjection, .metres = before.metres};
  const text::LeadingNumber number = text::parseLeadingNumber(text);
  // A number beyond all codes becomes the largest one, which no run accepts.
  const std::int16_t typed = text::toInt16(number.value).value_or(std::numeric_limits<std::int16_t>::max());
  const std::int16_t code = number.length == 0 ? kNoProjection : typed;
  const bool keepsUnit = before.metres && (code != before.code || overNumber);
  return {.code = code, .metres = marksMetres(text) || keepsUnit};
}

}  // namespace tovak::run
