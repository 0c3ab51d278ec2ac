#include "formats/database/sheet_rows.h"

#include <algorithm>
#include <numeric>

#include "text/strings.h"

namespace tovak::formats::database {
namespace {

/// Of two fields that share a column, the first in this order takes it.
constexpr std::array<std::string_view, kSheetFields> kHeadings = {
    "NAME",         "NAD83(07)LAT", "NAD83(07)LON", "NAD83(96)LAT", "NAD83(96)LON", "NAD83(86)LAT",
    "NAD83(86)LON", "NAD27_LAT",    "NAD27_LON",    "REF_LAT",      "REF_LON",      "NAVD88",
    "NGVD29",       "COUNTY ZONE",  "GSID",         "NAD83(11)LAT", "NAD83(11)LON"};
constexpr std::size_t kName = 0;
constexpr std::size_t kCountyZone = 13;
constexpr std::size_t kStationIdentifier = 14;
/// The values of NAD83(2011) come after all others.
constexpr std::size_t kNad83Of2011 = 15;

constexpr char kSeparator = ',';

}  // namespace

GeodeticCsvColumnMap columnsOf(std::string_view headings) {
  GeodeticCsvColumnMap map;
  std::iota(map.columns.begin(), map.columns.end(), std::size_t{1});
  do {
    const std::string_view heading = text::trimBlanks(text::takeField(headings, kSeparator));
    ++map.columnCount;
    const auto* const found = std::find(kHeadings.begin(), kHeadings.end(), heading);
    if (found != kHeadings.end()) map.columns[static_cast<std::size_t>(found - kHeadings.begin())] = map.columnCount;
  } while (!headings.empty());
  return map;
}

bool isHeading(std::string_view line) {
  return text::findIgnoringCase(line, kHeadings[kName]) != std::string_view::npos;
}

std::string_view SheetRow::name() const {
  return fields[kName];
}
std::string_view SheetRow::countyZone() const {
  return fields[kCountyZone];
}
std::string_view SheetRow::stationIdentifier() const {
  return fields[kStationIdentifier];
}

std::string_view SheetRow::value(std::int16_t number) const {
  const auto index = static_cast<std::size_t>(number);
  return fields[index < 3 ? kNad83Of2011 + index - 1 : index - 2];
}

RowSplitter::RowSplitter(const GeodeticCsvColumnMap& map) {
  const std::size_t last = *std::max_element(map.columns.begin(), map.columns.end());
  fieldOfColumn_.assign(std::min(last, map.columnCount), -1);
  for (std::size_t field = 0; field < kSheetFields; ++field) {
    const std::size_t column = map.columns[field];
    if (column > fieldOfColumn_.size()) continue;
    int& taken = fieldOfColumn_[column - 1];
    if (taken < 0) taken = static_cast<int>(field);
  }
}

void RowSplitter::split(std::string_view line, SheetRow& row) const {
  row.fields.fill({});
  for (const int field : fieldOfColumn_) {
    // The headings may have many more columns than the row.
    if (line.empty()) break;
    const std::string_view value = text::takeField(line, kSeparator);
    if (field >= 0) row.fields[static_cast<std::size_t>(field)] = text::trimBlanks(value);
  }
}

bool SheetStream::next(std::string_view& line) {
  for (;;) {
    const bool reading = opened_ > 0 || sheets_.empty();
    if (reading && lines_.next(line)) {
      if (line.empty()) continue;
      if (!columnsKnown_) splitter_ = RowSplitter(columnsOf(line));
      columnsKnown_ = true;
      firstOfSheet_ = !begun_;
      begun_ = true;
      return true;
    }
    if (lines_.fault() != text::LineReader::Fault::None || opened_ == sheets_.size()) return false;
    if (!lines_.open(sheets_[opened_])) return false;
    ++opened_;
    begun_ = false;
  }
}

}  // namespace tovak::formats::database
