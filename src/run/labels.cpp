#include "run/labels.h"

#include <array>

#include "run/projection_code.h"

namespace tovak::run {
namespace {

struct AdjustmentTexts {
  std::string_view datum;
  std::string_view suffix;
};

/// In the order of `Adjustment`.
constexpr std::array<AdjustmentTexts, 5> kAdjustments = {{
    {"NAD83", ""},
    {"NAD83(1986)", "-1986"},
    {"NAD83(1996)", "-1996"},
    {"NAD83(2007)", "-2007"},
    {"NAD83(2011)", "-2011"},
}};

constexpr AdjustmentTexts kNad27 = {"NAD27", ""};

const AdjustmentTexts& adjustmentTexts(std::int16_t projectionCode, Adjustment adjustment) {
  return isNad27(projectionCode) ? kNad27 : kAdjustments[static_cast<std::size_t>(adjustment)];
}

}  // namespace

UnitLabels unitLabels(std::int16_t projectionCode, bool metres) {
  UnitLabels labels = metres ? UnitLabels{"(m)", "(m)"} : UnitLabels{"(f)", "(ft)"};
  if (isLatLong(projectionCode)) labels.shortLabel = "L-L";
  return labels;
}

std::string_view TargetUnitStepText(bool metres) {
  return metres ? "300" : "1000";
}

std::string_view datumLabel(std::int16_t projectionCode, Adjustment adjustment) {
  return adjustmentTexts(projectionCode, adjustment).datum;
}

std::string_view adjustmentSuffix(std::int16_t projectionCode, Adjustment adjustment) {
  return adjustmentTexts(projectionCode, adjustment).suffix;
}

std::string_view verticalDatumLabel(VerticalDatum datum) {
  return datum == VerticalDatum::Navd88 ? "NAVD88" : "NGVD29";
}

std::string identificationLine(const RunSettings& settings) {
  std::string line = "$Tovak#" + settings.target.projectionText;
  line += adjustmentSuffix(settings.TargetProjectionCode, settings.adjustment);
  line += "$ ";
  line += datumLabel(settings.TargetProjectionCode, settings.adjustment);
  line += ' ' + settings.target.displayName;
  line += settings.target.metres ? " (Meters)" : " (Feet)";
  return line;
}

}  // namespace tovak::run
