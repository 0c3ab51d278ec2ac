#include "run/point_record.h"

#include <cmath>
#include <cstring>

namespace tovak::run {

namespace {

/// Nearly always the text is what it should be, and comparing a few characters costs less than storing them.
template <std::size_t size>
void restore(std::string& text, const char (&usual)[size]) {
  if (text.size() != size - 1 || std::memcmp(text.data(), usual, size - 1) != 0) text.assign(usual, size - 1);
}

template <typename... Texts>
void clear(Texts&... texts) {
  (texts.clear(), ...);
}

}  // namespace

void resetPoint(PointRecord& point) {
  clear(point.pointNumber, point.description, point.station, point.offset, point.raField, point.comment,
        point.ellipsoidHeight, point.geoidHeight, point.latitude, point.longitude, point.featureCode, point.figure,
        point.anythingElse, point.OutInfo, point.sourceInfo, point.sectionLine);
  for (std::string& attribute : point.attributes) attribute.clear();
  restore(point.phField, "   ");
  restore(point.owField, "    ");
  restore(point.odField, "    ");
  point.furtherFieldCount = 0;
  restore(point.code, "  ");
  restore(point.classCode, "BQR23");
  restore(point.trailerGroup, "  MONQRDT23CXXXX");
  point.packedAngles.reset();
  point.alignmentPoint = false;
  point.elevationAccuracy = text::Accuracy::Thousandth;
  point.InNorthLat = point.InEastLon = point.Elevation = 0.0;
  point.OutNorthLat = point.OutEastLon = 0.0;
  point.sourceLine = 0;
  point.refusal = point.otherLines = {};
}

void takeAngles(PointRecord& point, const text::AngleReading& latitude, const text::AngleReading& longitude,
                DoubtFlags& doubts) {
  point.InNorthLat = latitude.degrees;
  point.InEastLon = -std::fabs(longitude.degrees);
  const text::AngleFault fault = latitude.fault != text::AngleFault::None ? latitude.fault : longitude.fault;
  point.refusal = text::angleFaultText(fault);
  if (latitude.textBehind || longitude.textBehind) doubts.raise(Doubt::TextBehindNumber);
  if (fault == text::AngleFault::NotBelow60) doubts.raise(Doubt::NotBelow60);
  if (latitude.shortPacked && longitude.shortPacked) doubts.raise(Doubt::ShortPacked);
}

void addComment(PointRecord& point, std::string_view item) {
  if (item.empty()) return;
  if (!point.comment.empty()) point.comment += ' ';
  point.comment += item;
}

}  // namespace tovak::run
