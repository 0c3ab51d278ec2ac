#include "formats/survey/geopak_writer.h"

#include <string>
#include <string_view>

#include "text/number.h"

namespace tovak::formats {
namespace {

enum class CoordinateOrder { EastingFirst, NorthingFirst };

class GeopakWriter final : public run::PointWriter {
 public:
  GeopakWriter(const run::TargetContext& context, CoordinateOrder order)
      : lines_(context.lines), order_(order), accuracy_(context.settings.accuracy) {}

  bool begin() override { return true; }

  bool write(const run::PointRecord& point) override {
    line_ = "STO POI ";
    line_ += point.pointNumber;
    appendCoordinates(point);
    appendNumber("  EL ", point.Elevation);
    if (!point.featureCode.empty()) {
      line_ += "  FEA ";
      line_ += point.featureCode;
    }
    if (!point.description.empty()) {
      line_ += "  DES \"";
      line_ += point.description;
      line_ += '"';
    }
    return lines_.writeLine(line_);
  }

  bool end() override { return true; }

 private:
  void appendCoordinates(const run::PointRecord& point) {
    if (order_ == CoordinateOrder::EastingFirst) {
      appendNumber("  X ", point.OutEastLon);
      appendNumber("  Y ", point.OutNorthLat);
    } else {
      appendNumber("  N ", point.OutNorthLat);
      appendNumber("  E ", point.OutEastLon);
    }
  }

  void appendNumber(std::string_view keyword, double value) {
    line_ += keyword;
    text::appendPrecision(line_, value, accuracy_);
  }

  text::LineWriter& lines_;
  const CoordinateOrder order_;
  const int accuracy_;
  std::string line_;
};

}  // namespace

std::unique_ptr<run::PointWriter> makeGeopakXyWriter(const run::TargetContext& context) {
  return std::make_unique<GeopakWriter>(context, CoordinateOrder::EastingFirst);
}

std::unique_ptr<run::PointWriter> makeGeopakNeWriter(const run::TargetContext& context) {
  return std::make_unique<GeopakWriter>(context, CoordinateOrder::NorthingFirst);
}

}  // namespace tovak::formats
