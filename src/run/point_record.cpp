#include "run/point_record.h"

namespace tovak::run {

void resetPoint(PointRecord& point) {
  for (std::string* text : {&point.pointNumber, &point.description, &point.station, &point.offset, &point.raField,
                            &point.comment, &point.ellipsoidHeight, &point.geoidHeight, &point.latitude,
                            &point.longitude, &point.featureCode, &point.figure, &point.anythingElse, &point.OutInfo,
                            &point.sectionLine, &point.reportNorthing, &point.reportEasting, &point.heightRemark}) {
    text->clear();
  }
  for (std::string& attribute : point.attributes) attribute.clear();
  point.phField = "   ";
  point.owField = "    ";
  point.odField = "    ";
  point.furtherFieldCount = 0;
  point.code = "  ";
  point.classCode = "BQR23";
  point.trailerGroup = "  MONQRDT23CXXXX";
  point.oblique = point.verticalDatum88 = point.alignmentPoint = false;
  point.elevationDecimals = 0;
  point.InNorthLat = point.InEastLon = point.Elevation = 0.0;
  point.OutNorthLat = point.OutEastLon = 0.0;
  point.sourceLine = 0;
}

void addComment(PointRecord& point, std::string_view item) {
  if (item.empty()) return;
  if (!point.comment.empty()) point.comment += ' ';
  point.comment += item;
}

}  // namespace tovak::run
