#include "run/projection_box.h"

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

ProjectionBox typeProjection(const ProjectionBox& before, std::string_view text, bool overNumber) {
  const text::LeadingNumber number = text::parseLeadingNumber(text);
  // A number beyond all codes becomes the largest one, which no run accepts.
  const std::int16_t typed = text::toInt16(number.value).value_or(std::numeric_limits<std::int16_t>::max());
  const std::int16_t code = number.length == 0 ? kNoProjection : typed;
  const bool keepsUnit = before.metres && (code != before.code || overNumber);
  return {.code = code, .metres = marksMetres(text) || keepsUnit};
}

}  // namespace tovak::run
