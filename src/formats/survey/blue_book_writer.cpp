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
#include "text/fixed_columns.h"
#include "text/number.h"

namespace tovak::formats {
namespace {

constexpr std::int64_t kSequenceStep = 10;
constexpr std::size_t kSequenceLength = 6;
constexpr std::size_t kNameLength = 30;

std::string_view zoneCode(std::int16_t projectionCode) {
  constexpr std::array<std::string_view, 4> kZoneCodes = {"0015", "2201", "2202", "2203"};
  const bool named = projectionCode >= 1 && projectionCode <= 3;
  return named ? kZoneCodes[static_cast<std::size_t>(projectionCode) - 1] : kZoneCodes.back();
}

/// Appends two digits of degrees, two of minutes and seven of seconds. Hundreds of degrees are left out.
void appendPacked(std::string& out, double decimalDegrees) {
  text::SplitAngle angle = text::splitAngle(std::fabs(decimalDegrees));
  angle.degrees %= 100;
  text::appendDegrees(out, angle);
  text::appendMinutes(out, angle);
  text::appendWholeSeconds(out, angle);
  text::appendSecondsFraction(out, angle);
}

class BlueBookWriter final : public run::PointWriter {
 public:
  explicit BlueBookWriter(const run::TargetContext& context)
      : line_(context.lines),
        accuracy_(context.settings.accuracy),
        geographic_(run::isLatLong(context.settings.TargetProjectionCode)),
        code_(blue_book::positionCode(context.settings.TargetProjectionCode)),
        zoneCode_(zoneCode(context.settings.TargetProjectionCode)),
        heightUnit_(blue_book::heightUnit(context.settings.target)) {}

  bool begin() override { return true; }

  bool write(const run::PointRecord& point) override {
    putSequence();
    line_.put(code_);
    number_.clear();
    text::appendFourDigits(number_, point.pointNumber);
    line_.put(number_);
    // A point without a number has three digits.
    line_.advanceTo(15);
    line_.put(std::string_view(point.description).substr(0, kNameLength));
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
    return line_.end();
  }

  bool end() override { return true; }

 private:
  void putSequence() {
    sequence_ += kSequenceStep;
    number_ = "000000";
    text::appendWhole(number_, sequence_);
    // The last six digits, so that the record code stays in its columns behind 99999 stations.
    line_.put(std::string_view(number_).substr(number_.size() - kSequenceLength));
  }

  void putPosition(const run::PointRecord& point) {
    number_.clear();
    appendPacked(number_, point.OutNorthLat);
    // The hundreds of the longitude's degrees: longitudes are taken to be under 100 degrees.
    number_ += "N0";
    appendPacked(number_, point.OutEastLon);
    number_ += 'W';
    line_.put(number_);
  }

  void putGrid(const run::PointRecord& point) {
    putImplied(point.OutNorthLat, accuracy_, 3, 10);
    line_.advanceTo(55);
    putImplied(point.OutEastLon, accuracy_, 3, 11);
    line_.advanceTo(66);
    line_.put(zoneCode_);
  }

  void putElevation(const run::PointRecord& point) {
    if (point.Elevation == 0.0) return;
    const double metres = run::convertLength(point.Elevation, heightUnit_, run::LengthUnit::metres);
    putImplied(metres, std::max(point.elevationDecimals, 1), 2, 6);
  }

  /// Puts a number without its decimal point: blanks stand for the decimals it lacks, and in front up to `width`.
  void putImplied(double value, int precision, std::size_t decimals, std::size_t width) {
    number_.clear();
    text::appendPrecision(number_, value, precision);
    const std::size_t point = std::min(number_.find('.'), number_.size());
    number_.erase(point, 1);
    number_.resize(point + decimals, ' ');
    field_.clear();
    text::appendRightAligned(field_, number_, width);
    line_.put(field_);
  }

  text::ColumnLine line_;
  const int accuracy_;
  const bool geographic_;
  const std::string_view code_;
  const std::string_view zoneCode_;
  const run::LengthUnit heightUnit_;
  std::int64_t sequence_ = 0;
  std::string number_;
  std::string field_;
};

}  // namespace

std::unique_ptr<run::PointWriter> makeBlueBookWriter(const run::TargetContext& context) {
  return std::make_unique<BlueBookWriter>(context);
}

}  // namespace tovak::formats
