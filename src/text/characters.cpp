#include "text/characters.h"

#include <algorithm>
#include <array>

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

/// Whether a terminal treats a character as a command. Those from 128 to 159 come as one byte or as UTF-8.
bool isControl(std::string_view character) {
  const unsigned last = byteAt(character, character.size() - 1);
  if (character.size() == 2) return byteAt(character, 0) == 0xC2 && last < 0xA0;
  return character.size() == 1 && character != "\n" && (last < 0x20 || (last >= 0x7F && last < 0xA0));
}

}  // namespace

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = firstCharacterLength(text);
    if (length == 1 && byteAt(text, 0) >= 0x80U) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::size_t characterCount(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(firstCharacterLength(text));
  return count;
}

std::optional<char32_t> takeCharacter(std::string_view& text) {
  constexpr std::array<unsigned, 5> kLeadBits = {0, 0x7F, 0x1F, 0x0F, 0x07};
  constexpr std::array<char32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
  const std::size_t length = firstCharacterLength(text);
  char32_t character = byteAt(text, 0) & kLeadBits[length];
  for (std::size_t i = 1; i < length; ++i) character = character << 6U | (byteAt(text, i) & 0x3FU);
  const bool surrogate = character >= 0xD800 && character < 0xE000;
  const bool alone = length == 1 && byteAt(text, 0) >= 0x80;
  if (alone || surrogate || character < kLeast[length] || character > 0x10FFFF) {
    text.remove_prefix(1);
    return std::nullopt;
  }
  text.remove_prefix(length);
  return character;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
  std::size_t length = 0;
  for (; count > 0 && length < text.size(); --count) length += firstCharacterLength(text.substr(length));
  return text.substr(0, length);
}

std::string_view charactersWithin(std::string_view text, std::size_t bytes) {
  if (text.size() <= bytes) return text;
  std::size_t length = 0;
  for (;;) {
    const std::size_t next = length + firstCharacterLength(text.substr(length));
    if (next > bytes) return text.substr(0, length);
    length = next;
  }
}

std::string_view lastCharactersWithin(std::string_view text, std::size_t bytes) {
  while (text.size() > bytes) text.remove_prefix(firstCharacterLength(text));
  return text;
}

void appendPrintable(std::string& out, std::string_view text) {
  const std::size_t start = out.size();
  out += text;
  std::replace_if(
      out.begin() + static_cast<std::ptrdiff_t>(start), out.end(),
      [](char c) { return (c >= '\0' && c < ' ') || c == '\x7F'; }, ' ');
}

std::string withVisibleControls(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string out;
  while (!text.empty()) {
    const std::string_view character = text.substr(0, firstCharacterLength(text));
    text.remove_prefix(character.size());
    if (!isControl(character)) {
      out += character;
      continue;
    }
    for (const char c : character) {
      const unsigned byte = static_cast<unsigned char>(c);
      out.append("\\x") += kDigits[byte >> 4U];
      out += kDigits[byte & 15U];
    }
  }
  return out;
}

}  // namespace tovak::text
