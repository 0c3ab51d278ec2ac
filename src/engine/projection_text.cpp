#include "engine/projection_text.h"

#include <algorithm>

#include "text/number.h"
#include "text/strings.h"

namespace tovak::engine {
namespace {

bool endsHere(std::string_view rest) {
  return rest.empty() || rest.front() == ' ' || rest.front() == '(';
}

}  // namespace

std::optional<ProjectionText> readProjectionText(std::string_view text) {
  if (const std::size_t sign = text.find('='); sign != std::string_view::npos) text.remove_prefix(sign + 1);
  const text::LeadingNumber number = text::parseLeadingNumber(text);
  const std::optional<std::int16_t> code = text::toInt16(number.value);
  if (number.length == 0 || !code) return std::nullopt;

  std::string_view rest = text.substr(number.length);
  std::string_view mark = rest.substr(std::min(rest.find_first_not_of(' '), rest.size()));
  ProjectionText result{.code = *code};
  if (!mark.empty() && text::upperCase(mark.front()) == 'M') {
    result.unit = run::LengthUnit::metres;
    rest = mark.substr(1);
  }
  return endsHere(rest) ? std::optional(result) : std::nullopt;
}

}  // namespace tovak::engine
