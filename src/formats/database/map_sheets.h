/// The map sheets of the agency's geodetic database: one file each. The names of one county's sheets differ only in the
/// last character before ".csv".
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "run/message.h"
#include "text/result.h"

namespace tovak::formats::database {

/// Paths of sheets, in the order in which they are read.
using MapSheetList = std::vector<std::string>;

/// No county has more sheets than this.
inline constexpr std::size_t kMostMapSheets = 7;

/// The files in the folder of `path` whose names differ from it in no more than the one character before the first
/// ".csv" of the path, by name. Letter case is ignored in names: the sheets come from systems that ignore it, and a
/// sheet missed for its case would silently cost points. Where the first ".csv" belongs to a folder's name, there is
/// one sheet.
///
/// Errors: a path without ".csv", more than `kMostMapSheets` files, a folder that cannot be listed.
text::Result<MapSheetList> findMapSheets(const std::string& path);

/// The message for an error of the search or of a sheet.
run::Message sheetMessage(std::string error);

/// Asks whether all of a county's sheets are meant (yes), or the chosen one alone (no).
run::Message mapSheetQuestion(std::size_t count);

/// The list of map sheet codes in a file, joined by "~". The file has them joined by "~", one a line, or both. Empty
/// for a file that cannot be read. A list beyond 1 MiB is cut off.
std::string loadMapSheetCodes(const std::string& path);

/// Whether a file is a map sheet by its name: the ending is ".csv" and what comes before it occurs in the list of
/// codes, as a whole code or part of one; letter case is ignored in both.
bool isMapSheet(const std::string& path, std::string_view codes);

}  // namespace tovak::formats::database
