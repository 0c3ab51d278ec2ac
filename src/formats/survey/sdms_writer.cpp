#include "formats/survey/sdms_writer.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "run/labels.h"
#include "run/length_unit.h"
#include "run/projection_code.h"
#include "text/angle.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::survey {
namespace {

/// The section line of a point that was read from another format.
constexpr std::string_view kPointSection = "AC:CP";
/// The trailer group of a fixed-column file without an orientation point.
constexpr std::string_view kNoOrientation = "XXXX";

constexpr int kOffsetDecimals = 6;

/// How stationing is written: 1+234.567 in metres, 12+34.57 in feet.
struct Stationing {
  std::size_t digitsBehindPlus;
  int decimals;
};
constexpr Stationing kMetricStationing = {.digitsBehindPlus = 3, .decimals = 3};
constexpr Stationing kEnglishStationing = {.digitsBehindPlus = 2, .decimals = 2};

/// The datum and, after a blank, the name of a user-defined project.
std::string headerText(const run::RunSettings& settings) {
  std::string text(run::datumLabel(settings, settings.TargetProjectionCode));
  if (!settings.target.displayName.empty()) text += ' ' + settings.target.displayName;
  return text;
}

/// The number of a text in plain digits, or nothing; anything else that reads as a number, such as 1E5, is a name.
std::optional<double> plainNumber(std::string_view text) {
  if (text.find_first_of("eE") != std::string_view::npos) return std::nullopt;
  const std::optional<double> number = text::strictNumber(text);
  return number && std::isfinite(*number) ? number : std::nullopt;
}

/// The station's distance from the origin, 1234.57 for 12+34.57; `scratch` holds the text without its "+".
std::optional<double> stationNumber(std::string_view station, std::string& scratch) {
  scratch = station;
  if (const std::size_t plus = scratch.find('+'); plus != std::string::npos) scratch.erase(plus, 1);
  return plainNumber(scratch);
}

void appendStation(std::string& out, double value, const Stationing& form) {
  const std::size_t start = out.size();
  text::appendFixed(out, value, form.decimals);
  const std::size_t firstDigit = start + (out[start] == '-' ? 1 : 0);
  const std::size_t digits = out.find('.', firstDigit) - firstDigit;
  const std::size_t leastDigits = form.digitsBehindPlus + 1;
  if (digits < leastDigits) out.insert(firstDigit, leastDigits - digits, '0');
  out.insert(firstDigit + std::max(digits, leastDigits) - form.digitsBehindPlus, 1, '+');
}

class SdmsWriter final : public run::PointWriter {
 public:
  explicit SdmsWriter(const run::TargetContext& context)
      : lines_(context.lines),
        doubts_(context.doubts),
        targetSystem_(context.targetSystem),
        headerText_(headerText(context.settings)),
        angles_(run::isLatLong(context.settings.TargetProjectionCode)),
        accuracy_(context.settings.accuracy),
        sourceUnit_(run::unitOf(context.settings.source)),
        targetUnit_(run::unitOf(context.settings.target)) {}

  bool begin() override {
    section_.clear();
    put("HD:", headerText_);
    put("CM:Projection=", targetSystem_);
    if (!angles_) put("CM:Units=", targetUnit_ == run::LengthUnit::metres ? "METERS" : "FEET");
    return lines_.write(section_);
  }

  bool write(const run::PointRecord& point) override {
    section_.clear();
    put("", point.sectionLine.empty() ? kPointSection : std::string_view(point.sectionLine));
    putFilled("PN:", point.pointNumber);
    putUnlessBlank("PH:", point.phField);
    putUnlessBlank("OW:", point.owField);
    if (point.odField != kNoOrientation) putUnlessBlank("OD:", point.odField);
    putCoordinates(point);
    putHeight("ZC:", point.Elevation);
    putSourceHeight("HG:", point.geoidHeight);
    putSourceHeight("HE:", point.ellipsoidHeight);
    putFilled("FE:", point.featureCode);
    putFilled("FG:", point.figure);
    for (std::size_t i = 0; i < point.furtherFieldCount; ++i) put("", point.furtherFields[i]);
    putFilled("RA:", point.raField);
    putStation(point.station);
    putOffset(point.offset);
    return lines_.write(section_);
  }

  bool end() override { return true; }

 private:
  void endLine() { section_ += text::LineWriter::kLineEnd; }

  void put(std::string_view tag, std::string_view value) {
    section_ += tag;
    section_ += value;
    endLine();
  }

  void putFilled(std::string_view tag, std::string_view value) {
    if (!value.empty()) put(tag, value);
  }

  void putUnlessBlank(std::string_view tag, std::string_view value) {
    if (!text::trimBlanks(value).empty()) put(tag, value);
  }

  void putNumber(std::string_view tag, double value) {
    section_ += tag;
    text::formatPrecision(section_, value, accuracy_);
    endLine();
  }

  void putAngle(std::string_view tag, double degrees) {
    section_ += tag;
    text::appendPackedAngle(section_, degrees);
    endLine();
  }

  void putCoordinates(const run::PointRecord& point) {
    if (angles_) {
      putAngle("LT:", point.OutNorthLat);
      putAngle("LG:", -point.OutEastLon);
    } else {
      putNumber("YC:", point.OutNorthLat);
      putNumber("XC:", point.OutEastLon);
    }
  }

  void putHeight(std::string_view tag, double height) {
    if (height != 0.0) putNumber(tag, height);
  }

  /// The unit of a height that was carried along is unknown, so it is not scaled.
  void putSourceHeight(std::string_view tag, std::string_view text) {
    const double height = text::leadingNumber(text);
    if (sourceUnit_ != targetUnit_ && height != 0.0) doubts_.raise(run::Doubt::UnscaledHeights);
    putHeight(tag, height);
  }

  void putStation(std::string_view station) {
    const std::optional<double> number = sourceUnit_ == targetUnit_ ? std::nullopt : stationNumber(station, scratch_);
    if (!number) {
      putFilled("ST:", station);
      return;
    }
    section_ += "ST:";
    appendStation(section_, run::convertLength(*number, sourceUnit_, targetUnit_),
                  targetUnit_ == run::LengthUnit::metres ? kMetricStationing : kEnglishStationing);
    endLine();
  }

  void putOffset(std::string_view offset) {
    const std::optional<double> number = sourceUnit_ == targetUnit_ ? std::nullopt : plainNumber(offset);
    if (!number) {
      putFilled("OF:", offset);
      return;
    }
    section_ += "OF:";
    text::appendFixed(section_, run::convertLength(*number, sourceUnit_, targetUnit_), kOffsetDecimals);
    endLine();
  }

  text::LineWriter& lines_;
  run::DoubtFlags& doubts_;
  const std::string targetSystem_;
  const std::string headerText_;
  const bool angles_;
  const text::Accuracy accuracy_;
  const run::LengthUnit sourceUnit_;
  const run::LengthUnit targetUnit_;
  std::string section_;
  std::string scratch_;
};

}  // namespace

std::unique_ptr<run::PointWriter> makeSdmsWriter(const run::TargetContext& context) {
  return std::make_unique<SdmsWriter>(context);
}

}  // namespace tovak::formats::survey
