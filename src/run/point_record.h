/// The one point that travels from reader to engine to writer.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "run/doubts.h"
#include "text/angle.h"
#include "text/number.h"

namespace tovak::run {

/// DDMMSS.sss
struct PackedAngles {
  double latitude = 0.0;
  double longitude = 0.0;
};

/// Text fields are carried as the file has them unless a format says otherwise. Two-letter codes are those by which
/// tagged formats name the fields. Coordinates and the elevation are in the units of the side's projection; ellipsoid
/// and geoid heights stay in those of the source.
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

  /// Items of other codes, in their order of appearance; only the first `furtherFieldCount` are valid. The others keep
  /// their memory for the next point.
  std::vector<std::string> furtherFields;
  std::size_t furtherFieldCount = 0;

  std::string code;          ///< two-character code of the 80 column format
  std::string classCode;     ///< five characters
  std::string trailerGroup;  ///< sixteen characters

  /// The line that began the point's section in a tagged file; empty for points of other formats.
  std::string sectionLine;
  /// Latitude and longitude as the source packs them, where a report shows them so.
  std::optional<PackedAngles> packedAngles;
  /// The point was read in the alignment layout of the 80 column format; its point type is in the PH field.
  bool alignmentPoint = false;

  /// How precisely the source's elevation is written. Some writers echo it in every number.
  text::Accuracy elevationAccuracy = text::Accuracy::Thousandth;

  double InNorthLat = 0.0;  ///< northing, or latitude in decimal degrees
  double InEastLon = 0.0;   ///< easting, or longitude in decimal degrees, west negative
  /// In source units; in target units once the engine has converted the point.
  double Elevation = 0.0;

  double OutNorthLat = 0.0;  ///< target northing, or latitude in decimal degrees
  double OutEastLon = 0.0;   ///< target easting, or longitude
  std::string OutInfo;       ///< the engine's result text
  /// Its result text at the same place in the source's system, for targets that want it; empty for latitude and
  /// longitude.
  std::string sourceInfo;

  std::uint64_t sourceLine = 0;  ///< the line of the source where the record begins

  /// Why the record cannot be converted, a text that outlives the run; empty if it can.
  std::string_view refusal;
  /// Source lines, line ends included, that are not a point; valid until the next read.
  std::string_view otherLines;
};

/// Sets every field to its default before the next point is read. Texts keep their memory.
void resetPoint(PointRecord& point);

/// Puts the two angles into the record, the longitude west whatever its sign in the source. A fault becomes the
/// record's refusal; what is doubtful about the angles is raised.
void takeAngles(PointRecord& point, const text::AngleReading& latitude, const text::AngleReading& longitude,
                DoubtFlags& doubts);

/// Adds an item to the comment, with a blank before it if the comment is not empty.
void addComment(PointRecord& point, std::string_view item);

}  // namespace tovak::run
