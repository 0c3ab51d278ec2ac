/// The values of job files: how texts, file names and whole numbers are written in them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/result.h"

namespace tovak::selection {

/// A text as the value of a line. One that has blanks at its ends, begins with a quotation mark, or holds control
/// characters or bytes that are not UTF-8 goes into quotation marks, with \" and \\ for these two characters and \xNN
/// for such bytes.
std::string quotedWhereNeeded(std::string_view text);

/// The text of a value, or why there is none: marks that are not closed, a backslash before anything else, \x00.
text::Result<std::string> textOfValue(std::string_view value);

/// A file name for a job in `folder`, an absolute path: relative where the file lies in the folder or below it. Empty
/// stays empty.
std::string nameFromFolder(const std::string& name, const std::string& folder);
/// The reverse.
std::string nameInFolder(const std::string& name, const std::string& folder);

/// A whole number from `least` to `most`, or the reason why it is not.
text::Result<std::int32_t> wholeNumber(std::string_view value, std::int32_t least, std::int32_t most);

}  // namespace tovak::selection
