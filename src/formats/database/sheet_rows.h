/// Rows of the geodetic database's map sheets, and the headings that name their columns.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "formats/database/map_sheets.h"
#include "text/line_reader.h"

namespace tovak::formats::database {

/// The fields of a row, in the order of their headings' table.
inline constexpr std::size_t kSheetFields = 17;

/// Where the fields of a row stand. Columns are counted from 1.
struct GeodeticCsvColumnMap {
  /// A field without a heading is in the column of its place in the table.
  std::array<std::size_t, kSheetFields> columns;
  std::size_t columnCount = 0;
};

/// The columns given by a line of headings, which must match exactly. Any line will do: one without headings leaves the
/// fields where they are and gives the number of columns.
GeodeticCsvColumnMap columnsOf(std::string_view headings);

/// True for lines that are taken for headings: those with "NAME" anywhere, letter case ignored.
bool isHeading(std::string_view line);

/// One row. The texts refer to the line, without outer blanks; a field that the row does not have is empty.
struct SheetRow {
  std::array<std::string_view, kSheetFields> fields;

  std::string_view name() const;
  std::string_view countyZone() const;
  std::string_view stationIdentifier() const;
  /// A value by its number: latitude and longitude of NAD83(2011) 1 and 2, (2007) 3 and 4, (1996) 5 and 6, (1986) 7 and
  /// 8, of NAD27 9 and 10, reference coordinates 11 and 12; elevations on NAVD88 13, on NGVD29 14.
  std::string_view value(std::int16_t number) const;
};

/// Takes lines apart. A comma always separates: there are no quotes in a sheet.
class RowSplitter {
 public:
  RowSplitter() = default;
  explicit RowSplitter(const GeodeticCsvColumnMap& map);
  void split(std::string_view line, SheetRow& row) const;

 private:
  std::vector<int> fieldOfColumn_;  ///< -1 for a column that is not needed
};

/// The lines of several sheets as one stream.
class SheetStream {
 public:
  /// `lines` is opened on each sheet in turn. Without sheets it is read as already opened.
  SheetStream(text::LineReader& lines, const MapSheetList& sheets) : lines_(lines), sheets_(sheets) {}

  /// The next line that is not empty; the very first determines the columns. False at the end of the last sheet, and on
  /// a fault of the line reader.
  bool next(std::string_view& line);
  /// Whether that line is the first of its sheet.
  bool atFirstOfSheet() const { return firstOfSheet_; }
  void split(std::string_view line, SheetRow& row) const { splitter_.split(line, row); }

 private:
  text::LineReader& lines_;
  const MapSheetList& sheets_;
  std::size_t opened_ = 0;
  bool begun_ = false;  ///< the sheet has given a line
  bool firstOfSheet_ = false;
  bool columnsKnown_ = false;
  RowSplitter splitter_;
};

}  // namespace tovak::formats::database
