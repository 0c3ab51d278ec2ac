#include "formats/survey/geodimeter_writer.h"

#include <string>
#include <string_view>

#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::survey {
namespace {

/// The lines of one point.
class LabelLines {
 public:
  explicit LabelLines(text::Accuracy accuracy) : accuracy_(accuracy) {}

  void clear() { bytes_.clear(); }
  const std::string& bytes() const { return bytes_; }

  void addText(std::string_view label, std::string_view value) {
    bytes_ += label;
    bytes_ += value;
    bytes_ += text::LineWriter::kLineEnd;
  }

  void addNumber(std::string_view label, double value) {
    bytes_ += label;
    text::formatPrecision(bytes_, value, accuracy_);
    bytes_ += text::LineWriter::kLineEnd;
  }

 private:
  const text::Accuracy accuracy_;
  std::string bytes_;
};

void addCoordinates(LabelLines& lines, const run::PointRecord& point) {
  lines.addNumber("37=", point.OutNorthLat);
  lines.addNumber("38=", point.OutEastLon);
}

void addControlPoint(LabelLines& lines, const run::PointRecord& point) {
  lines.addText("5=", point.pointNumber);
  lines.addText("4=", text::unlessBlank(point.description));
  addCoordinates(lines, point);
  // An elevation of 0 means unknown: the instrument gets an empty value, not a height.
  if (point.Elevation == 0.0) {
    lines.addText("39=", {});
  } else {
    lines.addNumber("39=", point.Elevation);
  }
}

void addAlignmentPoint(LabelLines& lines, const run::PointRecord& point) {
  if (!point.station.empty()) lines.addText("80=", point.station);
  addCoordinates(lines, point);
  if (!point.raField.empty()) lines.addText("64=", point.raField);
}

using AddPoint = void (*)(LabelLines&, const run::PointRecord&);

class GeodimeterWriter final : public run::PointWriter {
 public:
  GeodimeterWriter(const run::TargetContext& context, AddPoint addPoint)
      : lines_(context.lines), addPoint_(addPoint), pointLines_(context.settings.accuracy) {}

  bool begin() override { return true; }

  bool write(const run::PointRecord& point) override {
    pointLines_.clear();
    addPoint_(pointLines_, point);
    return lines_.write(pointLines_.bytes());
  }

  bool end() override { return true; }

 private:
  text::LineWriter& lines_;
  const AddPoint addPoint_;
  LabelLines pointLines_;
};

}  // namespace

std::unique_ptr<run::PointWriter> makeGeodimeterControlWriter(const run::TargetContext& context) {
  return std::make_unique<GeodimeterWriter>(context, addControlPoint);
}

std::unique_ptr<run::PointWriter> makeGeodimeterAlignmentWriter(const run::TargetContext& context) {
  return std::make_unique<GeodimeterWriter>(context, addAlignmentPoint);
}

}  // namespace tovak::formats::survey
