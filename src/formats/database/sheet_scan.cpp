#include "formats/database/sheet_scan.h"

#include <cstdint>
#include <string_view>

#include "formats/database/sheet_rows.h"
#include "text/line_reader.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::database {
namespace {

/// The data sets that are offered only where the sheets have them, by the numbers of their latitudes.
constexpr std::array<std::int16_t, 5> kLatitudes = {1, 3, 5, 7, 9};
constexpr std::array<std::int16_t, 2> kElevations = {13, 14};

struct ZoneMark {
  std::string_view mark;
  SheetZone zone;
};

/// The first one that a text contains counts.
constexpr std::array<ZoneMark, 4> kZoneMarks = {{{"- South", SheetZone::South},
                                                 {"- Central", SheetZone::Central},
                                                 {"- North", SheetZone::North},
                                                 {"- Lake (North Shore)", SheetZone::NorthShore}}};

bool isPositive(const SheetRow& row, std::int16_t number) {
  return text::leadingNumber(row.value(number)) > 0.0;
}

void noteValues(SheetScan& scan, const SheetRow& row) {
  for (const std::int16_t latitude : kLatitudes) {
    bool& present = scan.present[static_cast<std::size_t>(latitude)];
    if (!present) present = isPositive(row, latitude) && isPositive(row, static_cast<std::int16_t>(latitude + 1));
  }
  for (const std::int16_t elevation : kElevations) {
    bool& present = scan.present[static_cast<std::size_t>(elevation)];
    if (!present) present = isPositive(row, elevation);
  }
}

void noteZone(SheetScan& scan, std::string_view countyZone) {
  if (countyZone.empty()) return;
  const std::size_t separator = countyZone.find(" - ");
  scan.countyName = text::trimBlanks(countyZone.substr(0, separator));
  if (separator == std::string_view::npos) return;
  for (const ZoneMark& mark : kZoneMarks) {
    if (text::findIgnoringCase(countyZone, mark.mark) == std::string_view::npos) continue;
    scan.zones[static_cast<std::size_t>(mark.zone)] = true;
    return;
  }
}

}  // namespace

SheetScan scanSheets(const MapSheetList& sheets) {
  SheetScan scan;
  text::LineReader lines;
  SheetStream stream(lines, sheets);
  SheetRow row;
  std::string_view line;
  while (stream.next(line)) {
    // Unlike the reader, the scan takes "NAME" farther down as part of a station's name.
    if (stream.atFirstOfSheet() && isHeading(line)) continue;
    stream.split(line, row);
    noteValues(scan, row);
    noteZone(scan, row.countyZone());
  }
  scan.error = lines.error();
  return scan;
}

}  // namespace tovak::formats::database
