#include "formats/survey/eighty_column_writer.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

#include "text/fixed_columns.h"

namespace tovak::formats {
namespace {

/// Decimals by the run's accuracy.
constexpr std::array<int, 6> kCoordinateDecimals = {3, 2, 1, 0, 0, 0};
/// An elevation gets a third decimal only when it has one.
constexpr std::array<int, 6> kElevationDecimals = {2, 2, 1, 0, 0, 0};

/// Whether anything but zeros follows the second decimal. Most decimals have no exact binary form (1.1 x 100 is above
/// 110), so a few units of the last binary digit do not count.
bool hasThirdDecimal(double elevation) {
  constexpr double kBinaryNoise = 8 * std::numeric_limits<double>::epsilon();
  const double hundredths = elevation * 100.0;
  return std::fabs(hundredths - std::nearbyint(hundredths)) > kBinaryNoise * std::fabs(hundredths);
}

/// Metric and English alignments name these two points the other way round.
std::string_view exchangedPointType(std::string_view type) {
  if (type == "PISC") return "PICS";
  return type == "PICS" ? "PISC" : type;
}

std::string_view withoutBlanksBehind(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

class EightyColumnWriter final : public run::PointWriter {
 public:
  explicit EightyColumnWriter(const run::TargetContext& context)
      : line_(context.lines),
        coordinateDecimals_(kCoordinateDecimals[static_cast<std::size_t>(context.settings.accuracy)]),
        elevationDecimals_(kElevationDecimals[static_cast<std::size_t>(context.settings.accuracy)]),
        elevationDecimalsWithThird_(context.settings.accuracy == 0 ? 3 : elevationDecimals_),
        unitsChange_(context.settings.source.metres != context.settings.target.metres) {}

  bool begin() override { return true; }

  bool write(const run::PointRecord& point) override {
    if (point.alignmentPoint) {
      putAlignmentPoint(point);
    } else {
      putOrdinaryPoint(point);
    }
    return line_.end();
  }

  bool end() override { return true; }

 private:
  void putOrdinaryPoint(const run::PointRecord& point) {
    putNumber(point.pointNumber);
    line_.advanceTo(5);
    line_.put(point.description);
    line_.advanceTo(35);
    putPointAt(8, masked(point.OutEastLon, coordinateDecimals_));
    line_.advanceTo(49);
    const std::string_view northing = masked(point.OutNorthLat, coordinateDecimals_);
    // What is printed decides, since a reader sees nothing else.
    const bool wide = point.OutNorthLat > 0 && northing.find('.') > 6;
    putPointAt(wide ? 8 : 7, northing);
    line_.advanceTo(wide ? 57 : 56);
    // A wide northing leaves the code one column; a blank behind it must not break the line.
    line_.put(wide ? withoutBlanksBehind(point.code) : point.code);
    putElevationAndTrailer(point.Elevation, point.trailerGroup);
  }

  void putElevationAndTrailer(double elevation, std::string_view trailer) {
    const bool third = hasThirdDecimal(elevation);
    line_.advanceTo(58);
    if (elevation == 0.0) {
      line_.put("       ");
    } else {
      putPointAt(5, masked(elevation, third ? elevationDecimalsWithThird_ : elevationDecimals_));
    }
    // A third decimal owns column 65 of the trailer group even where the accuracy leaves it unprinted.
    line_.advanceTo(third ? 66 : 65);
    line_.put(third ? trailer.substr(trailer.empty() ? 0 : 1) : trailer);
  }

  void putAlignmentPoint(const run::PointRecord& point) {
    // A point without a number keeps having none.
    if (!point.pointNumber.empty()) putNumber(point.pointNumber);
    line_.advanceTo(5);
    line_.put(point.description);
    line_.advanceTo(35);
    putPointAt(8, maskedWithin(11, point.OutEastLon));
    line_.advanceTo(46);
    putRightAligned(10, maskedWithin(10, point.OutNorthLat));
    line_.advanceTo(56);
    line_.put(unitsChange_ ? exchangedPointType(point.phField) : point.phField);
    line_.advanceTo(73);
    line_.put(point.owField);
    line_.advanceTo(77);
    line_.put(point.odField);
  }

  void putNumber(std::string_view pointNumber) {
    field_.clear();
    text::appendFourDigits(field_, pointNumber);
    line_.put(field_);
  }

  void putPointAt(std::size_t position, std::string_view number) {
    field_.clear();
    text::appendPointAt(field_, number, position);
    line_.put(field_);
  }

  void putRightAligned(std::size_t width, std::string_view number) {
    field_.clear();
    text::appendRightAligned(field_, number, width);
    line_.put(field_);
  }

  std::string_view masked(double value, int decimals) {
    number_.clear();
    text::appendMasked(number_, value, decimals);
    return number_;
  }

  /// With as many of the decimals as leave the number within `width` characters.
  std::string_view maskedWithin(std::size_t width, double value) {
    int decimals = coordinateDecimals_;
    while (masked(value, decimals).size() > width && decimals > 0) --decimals;
    return number_;
  }

  text::ColumnLine line_;
  const int coordinateDecimals_;
  const int elevationDecimals_;
  const int elevationDecimalsWithThird_;
  const bool unitsChange_;
  std::string number_;
  std::string field_;
};

}  // namespace

std::unique_ptr<run::PointWriter> makeEightyColumnWriter(const run::TargetContext& context) {
  return std::make_unique<EightyColumnWriter>(context);
}

}  // namespace tovak::formats
