#include "text/characters.h"

#include <algorithm>

namespace tovak::text {
namespace {

unsigned byteAt(std::string_view text, std::size_t position) {
  return static_cast<unsigned char>(text[position]);
}

/// How many bytes the character at the head of a text takes.
std::size_t firstCharacterLength(std::string_view text) {
  const unsigned lead = byteAt(text, 0);
  const std::size_t length = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 1;
  if (length > text.size()) return 1;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byteAt(text, i) & 0xC0U) != 0x80U) return 1;
  }
  return length;
}

}  // namespace

std::size_t characterCount(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(firstCharacterLength(text));
  return count;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
  std::size_t length = 0;
  for (; count > 0 && length < text.size(); --count) length += firstCharacterLength(text.substr(length));
  return text.substr(0, length);
}

void appendPrintable(std::string& out, std::string_view text) {
  const std::size_t start = out.size();
  out += text;
  std::replace_if(
      out.begin() + static_cast<std::ptrdiff_t>(start), out.end(),
      [](char c) { return (c >= '\0' && c < ' ') || c == '\x7F'; }, ' ');
}

}  // namespace tovak::text
