#include "run/projection_box.h"

#include <limits>

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

ProjectionBox typeProjection(const ProjectionBox& before, std::string_view text) {
  // A number beyond all codes becomes the largest one, which no run accepts.
  const std::int16_t code = text::toInt16(text::leadingNumber(text)).value_or(std::numeric_limits<std::int16_t>::max());
  const bool keepsUnit = code != before.code && before.metres;
  return {.code = code, .metres = marksMetres(text) || keepsUnit};
}

}  // namespace tovak::run
