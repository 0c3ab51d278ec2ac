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

const AdjustmentTexts& adjustmentTexts(bool nad27, Adjustment adjustment) {
  return nad27 ? kNad27 : kAdjustments[static_cast<std::size_t>(adjustment)];
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

bool isOnNad27(const RunSettings& settings, std::int16_t projectionCode) {
  const std::string& known = settings.projectDatum;
  return projectionCode == kUserDefinedProject && !known.empty() ? known == kNad27.datum : isNad27(projectionCode);
}

std::string_view datumLabel(const RunSettings& settings, std::int16_t projectionCode) {
  return datumLabel(isOnNad27(settings, projectionCode), settings.adjustment);
}

std::string_view datumLabel(bool nad27, Adjustment adjustment) {
  return adjustmentTexts(nad27, adjustment).datum;
}

std::string_view adjustmentSuffix(const RunSettings& settings, std::int16_t projectionCode) {
  return adjustmentTexts(isOnNad27(settings, projectionCode), settings.adjustment).suffix;
}

std::string_view verticalDatumLabel(VerticalDatum datum) {
  return datum == VerticalDatum::Navd88 ? "NAVD88" : "NGVD29";
}

}  // namespace tovak::run
