/// The map sheets into which the agency cuts its geodetic database: one file each, the sheets of one county named alike
/// but for the last character in front of ".csv".
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "run/message.h"

namespace tovak::formats {

/// Paths of sheets, in the order in which they are read.
using MapSheetList = std::vector<std::string>;

/// More sheets than this are no county's.
inline constexpr std::size_t kMostMapSheets = 7;

struct MapSheetSearch {
  MapSheetList sheets;
  std::optional<run::Message> problem;  ///< then there are no sheets
};

/// The files in the folder of `path` whose names differ from it in no more than the one character in front of the first
/// ".csv" of the path, by name. Letter case is ignored in names: the sheets come from systems that do not tell it, and
/// a sheet that is left out unseen costs points. Where the first ".csv" belongs to a folder's name, there is one sheet.
///
/// Problems: a path without ".csv", more than `kMostMapSheets` files, a folder that cannot be listed.
MapSheetSearch findMapSheets(const std::string& path);

/// Asks whether all of a county's sheets are meant (yes), or the chosen one alone (no).
run::Message mapSheetQuestion(std::size_t count);

/// The list of map sheet codes in a file, joined by "~": the file has them so, or one a line, or both. Empty for a file
/// that cannot be read. A list beyond 1 MiB is cut off.
std::string loadMapSheetCodes(const std::string& path);

/// Whether a file is a map sheet by its name: the ending is ".csv" and what stands in front of it occurs in the list of
/// codes, whole code or not, letter case ignored in both.
bool isMapSheet(const std::string& path, std::string_view codes);

}  // namespace tovak::formats
