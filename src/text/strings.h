/// Small operations on texts. Blanks are the character 32 alone; letter case is that of the 26 Latin letters; both
/// are independent of the locale.
#pragma once

#include <string>
#include <string_view>

namespace tovak::text {

/// `text` without the blanks at both ends.
std::string_view trimBlanks(std::string_view text);

/// `text` without the blanks at its end.
std::string_view withoutBlanksBehind(std::string_view text);
/// `text`, or an empty one when it is made of blanks.
std::string_view unlessBlank(std::string_view text);

/// `text` without any blank. The result refers to `text` itself, or to `scratch` when a blank had to be taken out.
std::string_view withoutBlanks(std::string_view text, std::string& scratch);

/// Takes the next field off `rest`: what stands before the next `separator`, which goes too, or the whole rest.
std::string_view takeField(std::string_view& rest, char separator);

bool equalsIgnoringCase(std::string_view a, std::string_view b);
bool endsWithIgnoringCase(std::string_view text, std::string_view ending);

/// The position of the first `part` in `text`, ignoring letter case, or npos.
std::size_t findIgnoringCase(std::string_view text, std::string_view part);

char upperCase(char letter);

/// Whether `text` holds a byte below the blank, or 127.
bool hasControlCharacter(std::string_view text);

}  // namespace tovak::text
