/// Scanning all map sheets of a county before a run, for the data sets, heights and zones to choose from.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "formats/database/map_sheets.h"

namespace tovak::formats::database {

enum class SheetZone : std::size_t { North, Central, South, NorthShore };

struct SheetScan {
  /// By the number of a value (see `SheetRow::value`); a data set by that of its latitude. A value is present when it
  /// is above zero in some row; the reference coordinates are not checked.
  std::array<bool, 15> present{};
  std::array<bool, 4> zones{};  ///< by `SheetZone`
  std::string countyName;       ///< of the last row that names one
  std::string error;            ///< why a sheet could not be read to its end; empty when all were
};

SheetScan scanSheets(const MapSheetList& sheets);

}  // namespace tovak::formats::database
