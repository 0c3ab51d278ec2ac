/// Names of files as the operating system takes them.
#pragma once

#include <filesystem>
#include <string_view>

namespace tovak::text {

/// The path of a name. A name in this program is UTF-8 on Windows and bytes elsewhere, as `path::string()` gives it
/// back; a path made of a text in any other way would be read in the 8-bit character set of the system.
std::filesystem::path pathOf(std::string_view name);

}  // namespace tovak::text
