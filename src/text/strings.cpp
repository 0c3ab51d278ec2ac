#include "text/strings.h"

#include <algorithm>

namespace tovak::text {
namespace {

bool sameLetter(char a, char b) {
  return upperCase(a) == upperCase(b);
}

}  // namespace

std::string_view trimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view withoutBlanksBehind(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view unlessBlank(std::string_view text) {
  return text.find_first_not_of(' ') == std::string_view::npos ? std::string_view() : text;
}

std::string_view withoutBlanks(std::string_view text, std::string& scratch) {
  text = trimBlanks(text);
  if (text.find(' ') == std::string_view::npos) return text;
  scratch.clear();
  std::copy_if(text.begin(), text.end(), std::back_inserter(scratch), [](char c) { return c != ' '; });
  return scratch;
}

std::string_view takeField(std::string_view& rest, char separator) {
  const std::string_view field = rest.substr(0, rest.find(separator));
  rest.remove_prefix(std::min(field.size() + 1, rest.size()));
  return field;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), sameLetter);
}

bool endsWithIgnoringCase(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() && equalsIgnoringCase(text.substr(text.size() - ending.size()), ending);
}

std::size_t findIgnoringCase(std::string_view text, std::string_view part) {
  const auto found = std::search(text.begin(), text.end(), part.begin(), part.end(), sameLetter);
  if (found == text.end() && !part.empty()) return std::string_view::npos;
  return static_cast<std::size_t>(found - text.begin());
}

char upperCase(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

bool hasControlCharacter(std::string_view text) {
  return std::ranges::any_of(text, [](unsigned char byte) { return byte < ' ' || byte == 127; });
}

}  // namespace tovak::text
