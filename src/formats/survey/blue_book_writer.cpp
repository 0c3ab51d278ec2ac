#include "formats/survey/blue_book_writer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "formats/survey/blue_book_record.h"
#include "text/angle.h"
#include "text/characters.h"
#include "text/fixed_columns.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::survey {
namespace {

constexpr std::int64_t kSequenceStep = 10;
constexpr std::size_t kSequenceLength = 6;
constexpr std::size_t kNameLength = 30;

std::string_view zoneCode(std::int16_t projectionCode) {
  constexpr std::array<std::string_view, 4> kZoneCodes = {"0015", "2201", "2202", "2203"};
  const bool named = projectionCode >= 1 && projectionCode <= 3;
  return named ? kZoneCodes[static_cast<std::size_t>(projectionCode) - 1] : kZoneCodes.back();
}

/// Appends two digits of degrees, two of minutes and seven of seconds. Hundreds of degrees are omitted.
void appendPacked(std::string& out, double decimalDegrees) {
  text::SplitAngle angle = text::splitAngle(std::fabs(decimalDegrees));
  angle.degrees %= 100;
  text::appendDegrees(out, angle);
  text::appendMinutes(out, angle);
  text::appendWholeSeconds(out, angle);
  text::appendSecondsFraction(out, angle);
}

text::Accuracy elevationAccuracy(const run::PointRecord& point) {
  return std::max(point.elevationAccuracy, text::Accuracy::Hundredth);
}

class BlueBookWriter final : public run::PointWriter {
 public:
  explicit BlueBookWriter(const run::TargetContext& context)
      : line_(context.lines),
        doubts_(context.doubts),
        accuracy_(context.settings.accuracy),
        geographic_(run::isLatLong(context.settings.TargetProjectionCode)),
        code_(blue_book::positionCode(context.settings.TargetProjectionCode)),
        zoneCode_(zoneCode(context.settings.TargetProjectionCode)),
        unit_(run::unitOf(context.settings.target)) {}

  bool begin() override { return true; }

  bool write(const run::PointRecord& point) override {
    putSequence();
    line_.put(code_);
    number_.clear();
    const bool wholeNumber = text::appendFourDigits(number_, point.pointNumber);
    line_.put(number_);
    // A point without a number has three digits.
    line_.advanceTo(15);
    const std::string_view name = text::withoutBlanksBehind(point.description);
    line_.put(text::charactersWithin(name, kNameLength));
    if (!wholeNumber || name.size() > kNameLength) doubts_.raise(run::Doubt::TooWide);
    line_.advanceTo(45);
    if (geographic_) {
      putPosition(point);
    } else {
      putGrid(point);
    }
    line_.advanceTo(70);
    putElevation(point);
    line_.advanceTo(76);
    line_.put(point.classCode);
    if (line_.takeBroken()) doubts_.raise(run::Doubt::TooWide);
    return line_.end();
  }

  bool end() override { return true; }

 private:
  void putSequence() {
    sequence_ += kSequenceStep;
    number_ = "000000";
    text::appendWhole(number_, sequence_);
    // Only the last six digits, so that the record code keeps its columns beyond 99999 stations.
    line_.put(std::string_view(number_).substr(number_.size() - kSequenceLength));
  }

  void putPosition(const run::PointRecord& point) {
    number_.clear();
    appendPacked(number_, point.OutNorthLat);
    // For the hundreds of degrees: longitudes are assumed to be under 100 degrees.
    number_ += "N0";
    appendPacked(number_, point.OutEastLon);
    number_ += 'W';
    line_.put(number_);
  }

  void putGrid(const run::PointRecord& point) {
    putImplied(inMetres(point.OutNorthLat), accuracy_, 3, 10);
    line_.advanceTo(55);
    putImplied(inMetres(point.OutEastLon), accuracy_, 3, 11);
    line_.advanceTo(66);
    line_.put(zoneCode_);
  }

  void putElevation(const run::PointRecord& point) {
    if (point.Elevation == 0.0) return;
    putImplied(inMetres(point.Elevation), elevationAccuracy(point), 2, 6);
  }

  double inMetres(double length) const { return run::convertLength(length, unit_, run::LengthUnit::metres); }

  /// Puts a number without its decimal point, with blanks in place of missing decimals and padded on the left to
  /// `width`.
  void putImplied(double value, text::Accuracy accuracy, std::size_t decimals, std::size_t width) {
    number_.clear();
    text::formatPrecision(number_, value, accuracy);
    const std::size_t point = std::min(number_.find('.'), number_.size());
    number_.erase(point, 1);
    number_.resize(point + decimals, ' ');
    line_.putRightAligned(width, number_);
  }

  text::ColumnLine line_;
  run::DoubtFlags& doubts_;
  const text::Accuracy accuracy_;
  const bool geographic_;
  const std::string_view code_;
  const std::string_view zoneCode_;
  const run::LengthUnit unit_;
  std::int64_t sequence_ = 0;
  std::string number_;
};

}  // namespace

void blueBookFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures) {
  const run::LengthUnit unit = run::unitOf(settings.target);
  const auto appendMetres = [unit](std::string& text, double length, text::Accuracy accuracy) {
    text::formatPrecision(text, run::convertLength(length, unit, run::LengthUnit::metres), accuracy);
  };
  figures = {};
  if (run::isLatLong(settings.TargetProjectionCode)) {
    text::appendSpacedAngle(figures.northing, std::fabs(point.OutNorthLat));
    text::appendSpacedAngle(figures.easting, std::fabs(point.OutEastLon));
  } else {
    appendMetres(figures.northing, point.OutNorthLat, settings.accuracy);
    appendMetres(figures.easting, point.OutEastLon, settings.accuracy);
  }
  if (point.Elevation != 0.0) appendMetres(figures.elevation, point.Elevation, elevationAccuracy(point));
}

std::unique_ptr<run::PointWriter> makeBlueBookWriter(const run::TargetContext& context) {
  return std::make_unique<BlueBookWriter>(context);
}

}  // namespace tovak::formats::survey
