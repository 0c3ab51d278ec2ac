#include "formats/survey/eighty_column_writer.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

#include "text/fixed_columns.h"
#include "text/strings.h"

namespace tovak::formats::survey {
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

/// The decimals of coordinates and elevation at an accuracy.
struct Decimals {
  int coordinate;
  int elevation;
  int elevationWithThird;

  explicit Decimals(text::Accuracy accuracy)
      : coordinate(kCoordinateDecimals[static_cast<std::size_t>(accuracy)]),
        elevation(kElevationDecimals[static_cast<std::size_t>(accuracy)]),
        elevationWithThird(accuracy == text::Accuracy::Thousandth ? 3 : elevation) {}

  int ofElevation(double value) const { return hasThirdDecimal(value) ? elevationWithThird : elevation; }
};

/// The widths of a coordinate in the alignment layout.
constexpr std::size_t kEastingWidth = 11;
constexpr std::size_t kNorthingWidth = 10;

/// Puts the value into `number` with as many of the decimals as leave it within `width` characters. False when decimals
/// were dropped or it is still too wide.
bool maskWithin(std::string& number, double value, int decimals, std::size_t width) {
  for (int left = decimals; left >= 0; --left) {
    number.clear();
    text::appendMasked(number, value, left);
    if (number.size() <= width) return left == decimals;
  }
  return false;
}

/// Metric and English alignments use these two names the other way round.
std::string_view exchangedPointType(std::string_view type) {
  if (type == "PISC") return "PICS";
  return type == "PICS" ? "PISC" : type;
}

class EightyColumnWriter final : public run::PointWriter {
 public:
  explicit EightyColumnWriter(const run::TargetContext& context)
      : line_(context.lines),
        doubts_(context.doubts),
        decimals_(context.settings.accuracy),
        unitsChange_(context.settings.source.metres != context.settings.target.metres) {}

  bool begin() override { return true; }

  bool write(const run::PointRecord& point) override {
    if (point.alignmentPoint) {
      putAlignmentPoint(point);
    } else {
      putOrdinaryPoint(point);
    }
    if (line_.takeBroken()) doubts_.raise(run::Doubt::TooWide);
    return line_.end();
  }

  bool end() override { return true; }

 private:
  void putOrdinaryPoint(const run::PointRecord& point) {
    putNumber(point.pointNumber);
    line_.advanceTo(5);
    line_.put(point.description);
    line_.advanceTo(35);
    line_.putPointAt(8, masked(point.OutEastLon, decimals_.coordinate));
    line_.advanceTo(49);
    const std::string_view northing = masked(point.OutNorthLat, decimals_.coordinate);
    // The printed digits decide, since a reader sees nothing else.
    const bool wide = point.OutNorthLat > 0 && northing.find('.') > 6;
    line_.putPointAt(wide ? 8 : 7, northing);
    line_.advanceTo(wide ? 57 : 56);
    // A wide northing leaves the code one column; a blank after it must not break the line.
    line_.put(wide ? text::withoutBlanksBehind(point.code) : point.code);
    putElevationAndTrailer(point.Elevation, point.trailerGroup);
  }

  void putElevationAndTrailer(double elevation, std::string_view trailer) {
    const bool third = hasThirdDecimal(elevation);
    line_.advanceTo(58);
    if (elevation == 0.0) {
      line_.put("       ");
    } else {
      line_.putPointAt(5, masked(elevation, decimals_.ofElevation(elevation)));
    }
    // A third decimal takes column 65 of the trailer group even when the accuracy leaves it unprinted.
    line_.advanceTo(third ? 66 : 65);
    line_.put(third ? trailer.substr(trailer.empty() ? 0 : 1) : trailer);
  }

  void putAlignmentPoint(const run::PointRecord& point) {
    // A point without a number stays without one.
    if (!point.pointNumber.empty()) putNumber(point.pointNumber);
    line_.advanceTo(5);
    line_.put(point.description);
    line_.advanceTo(35);
    line_.putPointAt(8, maskedWithin(kEastingWidth, point.OutEastLon));
    line_.advanceTo(46);
    line_.putRightAligned(kNorthingWidth, maskedWithin(kNorthingWidth, point.OutNorthLat));
    line_.advanceTo(56);
    line_.put(unitsChange_ ? exchangedPointType(point.phField) : point.phField);
    line_.advanceTo(73);
    line_.put(point.owField);
    line_.advanceTo(77);
    line_.put(point.odField);
    constexpr std::size_t kFieldWidth = 4;
    if (point.odField.size() > kFieldWidth) doubts_.raise(run::Doubt::TooWide);
  }

  void putNumber(std::string_view pointNumber) {
    field_.clear();
    if (!text::appendFourDigits(field_, pointNumber)) doubts_.raise(run::Doubt::TooWide);
    line_.put(field_);
  }

  std::string_view masked(double value, int decimals) {
    number_.clear();
    text::appendMasked(number_, value, decimals);
    return number_;
  }

  std::string_view maskedWithin(std::size_t width, double value) {
    if (!maskWithin(number_, value, decimals_.coordinate, width)) doubts_.raise(run::Doubt::TooWide);
    return number_;
  }

  text::ColumnLine line_;
  run::DoubtFlags& doubts_;
  const Decimals decimals_;
  const bool unitsChange_;
  std::string number_;
  std::string field_;
};

}  // namespace

void eightyColumnFigures(const run::RunSettings& settings, const run::PointRecord& point, run::PointFigures& figures) {
  const Decimals decimals(settings.accuracy);
  figures = {};
  if (point.alignmentPoint) {
    maskWithin(figures.northing, point.OutNorthLat, decimals.coordinate, kNorthingWidth);
    maskWithin(figures.easting, point.OutEastLon, decimals.coordinate, kEastingWidth);
    return;
  }
  text::appendMasked(figures.northing, point.OutNorthLat, decimals.coordinate);
  text::appendMasked(figures.easting, point.OutEastLon, decimals.coordinate);
  const int places = decimals.ofElevation(point.Elevation);
  if (point.Elevation != 0.0) text::appendMasked(figures.elevation, point.Elevation, places);
}

std::unique_ptr<run::PointWriter> makeEightyColumnWriter(const run::TargetContext& context) {
  return std::make_unique<EightyColumnWriter>(context);
}

}  // namespace tovak::formats::survey
