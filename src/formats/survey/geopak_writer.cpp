#include "formats/survey/geopak_writer.h"

#include <string>
#include <string_view>

#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::survey {
namespace {

enum class CoordinateOrder { EastingFirst, NorthingFirst };

class GeopakWriter final : public run::PointWriter {
 public:
  GeopakWriter(const run::TargetContext& context, CoordinateOrder order)
      : lines_(context.lines), doubts_(context.doubts), order_(order), accuracy_(context.settings.accuracy) {}

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
    if (const std::string_view description = text::unlessBlank(point.description); !description.empty()) {
      if (description.find('"') != std::string_view::npos) doubts_.raise(run::Doubt::ShiftedColumns);
      line_ += "  DES \"";
      line_ += description;
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
    text::formatPrecision(line_, value, accuracy_);
  }

  text::LineWriter& lines_;
  run::DoubtFlags& doubts_;
  const CoordinateOrder order_;
  const text::Accuracy accuracy_;
  std::string line_;
};

}  // namespace

std::unique_ptr<run::PointWriter> makeGeopakXyWriter(const run::TargetContext& context) {
  return std::make_unique<GeopakWriter>(context, CoordinateOrder::EastingFirst);
}

std::unique_ptr<run::PointWriter> makeGeopakNeWriter(const run::TargetContext& context) {
  return std::make_unique<GeopakWriter>(context, CoordinateOrder::NorthingFirst);
}

}  // namespace tovak::formats::survey
