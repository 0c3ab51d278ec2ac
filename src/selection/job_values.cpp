#include "selection/job_values.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <system_error>

#include "text/characters.h"
#include "text/native_path.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::selection {
namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";

bool needsQuotes(std::string_view text) {
  return text.starts_with('"') || text::trimBlanks(text).size() != text.size() || text::hasControlCharacter(text) ||
         !text::isUtf8(text);
}

void appendEscaped(std::string& out, std::string_view character) {
  const unsigned byte = static_cast<unsigned char>(character.front());
  if (character == "\"" || character == "\\") {
    (out += '\\') += character;
  } else if (character.size() == 1 && (byte >= 0x80 || text::hasControlCharacter(character))) {
    ((out += "\\x") += kDigits[byte >> 4U]) += kDigits[byte & 15U];
  } else {
    out += character;
  }
}

/// The byte of the two digits after "\x"; nothing for anything else, and for 0, with which file names end.
std::optional<char> escapedByte(std::string_view digits) {
  if (digits.size() < 2) return std::nullopt;
  const std::size_t high = kDigits.find(text::upperCase(digits[0]));
  const std::size_t low = kDigits.find(text::upperCase(digits[1]));
  if (high == std::string_view::npos || low == std::string_view::npos || high + low == 0) return std::nullopt;
  return static_cast<char>(high * 16 + low);
}

using Text = text::Result<std::string>;

/// What stands between the quotation marks.
Text unescaped(std::string_view rest) {
  std::string out;
  while (!rest.empty()) {
    const char c = rest.front();
    rest.remove_prefix(1);
    if (c == '"') return Text::failure("a quotation mark inside a text is written \\\"");
    if (c != '\\') {
      out += c;
    } else if (rest.starts_with('"') || rest.starts_with('\\')) {
      out += rest.front();
      rest.remove_prefix(1);
    } else if (const auto byte = escapedByte(rest.substr(rest.starts_with('x') ? 1 : rest.size()))) {
      out += *byte;
      rest.remove_prefix(3);
    } else {
      return Text::failure(R"(after "\" comes a quotation mark, "\", or "x" and two hexadecimal digits but 00)");
    }
  }
  return out;
}

}  // namespace

std::string quotedWhereNeeded(std::string_view text) {
  if (!needsQuotes(text)) return std::string(text);
  std::string out = "\"";
  while (!text.empty()) {
    const std::string_view character = text::firstCharacters(text, 1);
    appendEscaped(out, character);
    text.remove_prefix(character.size());
  }
  return out + '"';
}

Text textOfValue(std::string_view value) {
  if (!value.starts_with('"')) return std::string(value);
  const bool closed = value.size() > 1 && value.back() == '"';
  if (!closed) return Text::failure("the closing quotation mark is missing");
  return unescaped(value.substr(1, value.size() - 2));
}

std::string nameFromFolder(const std::string& name, const std::string& folder) {
  if (name.empty()) return name;
  std::error_code unknown;
  const std::string path = std::filesystem::absolute(text::pathOf(name), unknown).generic_string();
  const std::string prefix = folder.ends_with('/') ? folder : folder + '/';
  const bool below = path.starts_with(prefix) && path.size() > prefix.size() && path[prefix.size()] != '/';
  return below ? path.substr(prefix.size()) : path;
}

std::string nameInFolder(const std::string& name, const std::string& folder) {
  return name.empty() ? name : (text::pathOf(folder) / text::pathOf(name)).string();
}

text::Result<std::int32_t> wholeNumber(std::string_view value, std::int32_t least, std::int32_t most) {
  const std::optional<double> number = text::strictNumber(value);
  const std::optional<std::int32_t> whole = text::toInt32(number.value_or(0.5));
  const bool fits = number && whole && *whole == *number && *whole >= least && *whole <= most;
  if (fits) return *whole;
  std::string reason = "a whole number from ";
  text::appendWhole(reason, least);
  text::appendWhole(reason += " to ", most);
  return text::Result<std::int32_t>::failure(reason + " is expected");
}

}  // namespace tovak::selection
