/// Texts as a person reads them: UTF-8, a character of several bytes in one column. A byte that is not part of such a
/// character, as in files of older encodings, counts as a character of its own.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tovak::text {

/// Whether every byte is part of a character.
bool isUtf8(std::string_view text);

std::size_t characterCount(std::string_view text);

/// Takes the character off the head of a text that is not empty: its number in Unicode; nothing for a byte that belongs
/// to none.
std::optional<char32_t> takeCharacter(std::string_view& text);

/// The first `count` characters of a text, or the whole of a shorter one.
std::string_view firstCharacters(std::string_view text, std::size_t count);

/// The first, or last, whole characters of a text that take `bytes` bytes at most.
std::string_view charactersWithin(std::string_view text, std::size_t bytes);
std::string_view lastCharactersWithin(std::string_view text, std::size_t bytes);

/// Appends a text to a line of a page. Control characters, which would break the line or the page, become blanks.
void appendPrintable(std::string& out, std::string_view text);

/// The text with its control characters, but for line feeds, as "\xNN": a terminal would act on them.
std::string withVisibleControls(std::string_view text);

}  // namespace tovak::text
