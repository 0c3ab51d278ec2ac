/// The one point that travels from reader to engine to writer.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tovak::run {

/// Text fields are carried as the file has them unless a format says otherwise. Two-letter codes are those by which
/// tagged formats name the fields. Lengths are in the units of the side's projection.
struct PointRecord {
  std::string pointNumber;      ///< PN; empty: takes the default numbering
  std::string description;      ///< PD
  std::string station;          ///< ST
  std::string offset;           ///< OF
  std::string raField;          ///< RA
  std::string comment;          ///< CM; several items joined with a blank
  std::string ellipsoidHeight;  ///< HE
  std::string geoidHeight;      ///< HG
  std::string latitude;         ///< LT, text as in the source
  std::string longitude;        ///< LG, text as in the source
  std::string featureCode;      ///< FE
  std::string figure;           ///< FG
  std::string phField;          ///< PH, three characters by default
  std::string owField;          ///< OW, four characters by default
  std::string odField;          ///< OD, four characters by default
  std::string anythingElse;     ///< the unread rest of a delimited line
  std::array<std::string, 9> attributes;

  /// Items of other codes, in their order of appearance; the first `furtherFieldCount` count. The texts behind them
  /// keep their memory for the next point.
  std::vector<std::string> furtherFields;
  std::size_t furtherFieldCount = 0;

  std::string code;          ///< two-character code of the 80 column format
  std::string classCode;     ///< five characters
  std::string trailerGroup;  ///< sixteen characters

  /// The line that began the point's section in a tagged file; empty for points of other formats.
  std::string sectionLine;
  /// Source coordinates as a report prints them, where the reader has a text of its own for them; else empty.
  std::string reportNorthing;
  std::string reportEasting;
  /// Remarks of a height record: its text, and what it says of the point.
  std::string heightRemark;
  bool oblique = false;
  bool verticalDatum88 = false;
  /// The point was read in the alignment layout of the 80 column format; its point type is in the PH field.
  bool alignmentPoint = false;

  /// How many of three decimals the source's elevation text lacks: 3 without a decimal point, 0 with three or more.
  /// Writers echo that precision.
  int elevationDecimals = 0;

  /// Northing, or latitude; as read, and in decimal degrees once the run has interpreted it.
  double InNorthLat = 0.0;
  /// Easting, or longitude (west negative when the engine gets it).
  double InEastLon = 0.0;
  /// In source units until the engine has written the target's back.
  double Elevation = 0.0;

  double OutNorthLat = 0.0;  ///< target northing, or latitude in decimal degrees
  double OutEastLon = 0.0;   ///< target easting, or longitude
  std::string OutInfo;       ///< the engine's result text

  std::uint64_t sourceLine = 0;  ///< the line of the source where the record begins
};

/// Sets every field to its default before the next point is read. Texts keep their memory.
void resetPoint(PointRecord& point);

/// Adds an item to the comment, behind a blank when there is one already.
void addComment(PointRecord& point, std::string_view item);

}  // namespace tovak::run
