#include "formats/gps/trimble_waypoint_writer.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "run/labels.h"
#include "run/projection_code.h"
#include "text/angle.h"
#include "text/characters.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::gps {
namespace {

constexpr std::size_t kNameLength = 11;

using TextField = std::string run::PointRecord::*;

TextField preferredField(std::string_view code) {
  if (code == "ST") return &run::PointRecord::station;
  return code == "PD" ? &run::PointRecord::description : &run::PointRecord::pointNumber;
}

class TrimbleWaypointWriter final : public run::PointWriter {
 public:
  explicit TrimbleWaypointWriter(const run::TargetContext& context)
      : lines_(context.lines),
        doubts_(context.doubts),
        accuracy_(context.settings.accuracy),
        angles_(run::isLatLong(context.settings.TargetProjectionCode)),
        unknownHeight_(run::TargetUnitStepText(context.settings.target.metres)),
        preferred_(preferredField(context.settings.options.waypoints.name)) {}

  bool begin() override { return true; }

  bool write(const run::PointRecord& point) override {
    line_.clear();
    appendCoordinate(point.OutEastLon);
    appendCoordinate(point.OutNorthLat);
    if (point.Elevation == 0.0) {
      line_ += unknownHeight_;
    } else {
      text::formatPrecision(line_, point.Elevation, accuracy_);
    }
    line_ += ",\"";
    const std::string_view text = name(point);
    if (text.find('"') != std::string_view::npos) doubts_.raise(run::Doubt::ShiftedColumns);
    line_ += text;
    line_ += '"';
    return lines_.writeLine(line_);
  }

  bool end() override { return true; }

 private:
  void appendCoordinate(double value) {
    if (angles_) {
      text::appendDecimalDegrees(line_, value);
    } else {
      text::formatPrecision(line_, value, accuracy_);
    }
    line_ += ',';
  }

  std::string_view name(const run::PointRecord& point) const {
    std::string_view name = text::unlessBlank(point.*preferred_);
    for (const std::string* const other : {&point.pointNumber, &point.description, &point.station}) {
      if (name.empty()) name = text::unlessBlank(*other);
    }
    if (name.starts_with('"')) name.remove_prefix(1);
    if (name.ends_with('"')) name.remove_suffix(1);
    return text::firstCharacters(name, kNameLength);
  }

  text::LineWriter& lines_;
  run::DoubtFlags& doubts_;
  const text::Accuracy accuracy_;
  const bool angles_;
  const std::string_view unknownHeight_;
  const TextField preferred_;
  std::string line_;
};

}  // namespace

std::unique_ptr<run::PointWriter> makeTrimbleWaypointWriter(const run::TargetContext& context) {
  return std::make_unique<TrimbleWaypointWriter>(context);
}

}  // namespace tovak::formats::gps
