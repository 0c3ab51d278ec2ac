/// Texts of points in files whose notation has characters with a meaning of their own. Texts are read as UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace tovak::formats::exchange {

// Each appends a text, without the blanks at its ends, in the notation of a format. False when it has bytes that are no
// UTF-8 or characters that the notation cannot hold: others stand for these.

/// As the content of an element or of an attribute between double quotes (XML 1.0). U+FFFD stands for what XML forbids.
bool appendXml(std::string& out, std::string_view text);

/// As the inside of a string (RFC 8259). U+FFFD stands for what is no UTF-8.
bool appendJson(std::string& out, std::string_view text);

/// As the text of an entity of a DXF file of release 12, in the code page ANSI_1252 as far as it agrees with ISO
/// 8859-1, with "^ " for a caret. "?" stands for other characters and what is no UTF-8, a blank for control characters
/// and for a percent sign behind another: two of them begin a code.
bool appendDxf(std::string& out, std::string_view text);

}  // namespace tovak::formats::exchange
