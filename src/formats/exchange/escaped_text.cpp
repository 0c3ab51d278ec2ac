#include "formats/exchange/escaped_text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "text/characters.h"
#include "text/strings.h"

namespace tovak::formats::exchange {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

using Character = std::optional<char32_t>;

/// A character inside its text.
struct Place {
  Character character;     ///< nothing for a byte that belongs to none
  std::string_view bytes;  ///< the character's own
  char before;             ///< the byte before it, null for none
};

/// How a format writes texts.
struct Notation {
  std::array<bool, 256> plain = {};  ///< the bytes that stand for themselves
  bool (*append)(std::string& out, const Place& place) = nullptr;
};

constexpr Notation notationOf(std::string_view special, bool (*append)(std::string&, const Place&)) {
  Notation notation{.append = append};
  for (std::size_t c = ' '; c < 0x7F; ++c)
    notation.plain[c] = special.find(static_cast<char>(c)) == std::string_view::npos;
  return notation;
}

/// Most texts have nothing but plain bytes, which are appended together.
bool appendIn(const Notation& notation, std::string& out, std::string_view text) {
  bool whole = true;
  text = text::trimBlanks(text);
  std::string_view rest = text;
  for (;;) {
    std::size_t plain = 0;
    while (plain < rest.size() && notation.plain[static_cast<unsigned char>(rest[plain])]) ++plain;
    out += rest.substr(0, plain);
    rest.remove_prefix(plain);
    if (rest.empty()) return whole;
    const std::size_t at = text.size() - rest.size();
    const char before = at == 0 ? '\0' : text[at - 1];
    const Character character = text::takeCharacter(rest);
    const Place place = {
        .character = character, .bytes = text.substr(at, text.size() - rest.size() - at), .before = before};
    whole = notation.append(out, place) && whole;
  }
}

void appendHexadecimal(std::string& out, std::uint32_t number) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  for (int shift = 12; shift >= 0; shift -= 4) out += kDigits[number >> static_cast<unsigned>(shift) & 15U];
}

bool replace(std::string& out, std::string_view replacement) {
  out += replacement;
  return false;
}

bool appendXmlCharacter(std::string& out, const Place& place) {
  const char32_t c = place.character.value_or(0);
  switch (c) {
    case '&':
      out += "&amp;";
      return true;
    case '<':
      out += "&lt;";
      return true;
    case '>':
      out += "&gt;";
      return true;
    case '"':
      out += "&quot;";
      return true;
    // Readers may turn these into blanks.
    case '\t':
      out += "&#9;";
      return true;
    case '\n':
      out += "&#10;";
      return true;
    case '\r':
      out += "&#13;";
      return true;
    default:
      break;
  }
  if (c < ' ' || c == 0xFFFE || c == 0xFFFF) return replace(out, kReplacement);
  out += place.bytes;
  return true;
}

bool appendJsonCharacter(std::string& out, const Place& place) {
  if (!place.character) return replace(out, kReplacement);
  const char32_t c = *place.character;
  if (c < ' ') {
    out += "\\u";
    appendHexadecimal(out, c);
    return true;
  }
  if (c == '"' || c == '\\') out += '\\';
  out += place.bytes;
  return true;
}

bool appendDxfCharacter(std::string& out, const Place& place) {
  const char32_t c = place.character.value_or(0xFFFD);
  const bool control = c < ' ' || (c >= 0x7F && c < 0xA0);
  if (control || (c == '%' && place.before == '%')) return replace(out, " ");
  if (c > 0xFF) return replace(out, "?");
  out += static_cast<char>(c);
  if (c == '^') out += ' ';
  return true;
}

}  // namespace

bool appendXml(std::string& out, std::string_view text) {
  static constexpr Notation kXml = notationOf("&<>\"", appendXmlCharacter);
  return appendIn(kXml, out, text);
}

bool appendJson(std::string& out, std::string_view text) {
  static constexpr Notation kJson = notationOf("\"\\", appendJsonCharacter);
  return appendIn(kJson, out, text);
}

bool appendDxf(std::string& out, std::string_view text) {
  static constexpr Notation kDxf = notationOf("^%", appendDxfCharacter);
  return appendIn(kDxf, out, text);
}

}  // namespace tovak::formats::exchange
