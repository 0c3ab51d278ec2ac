/// Texts that describe the two sides of a run. Labels only: nothing here changes a coordinate.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "run/run_settings.h"

namespace tovak::run {

struct UnitLabels {
  std::string_view shortLabel;       ///< "(m)", "(f)", or "L-L" for latitude and longitude
  std::string_view coordinateLabel;  ///< "(m)" or "(ft)"
};

UnitLabels unitLabels(std::int16_t projectionCode, bool metres);

/// "300" for metres, "1000" for U.S. survey feet: the text that some targets write for an unknown height.
std::string_view TargetUnitStepText(bool metres);

/// Whether a system is on NAD27: the user-defined project by its datum where that is known, all others by their code.
bool isOnNad27(const RunSettings& settings, std::int16_t projectionCode);

/// "NAD27", "NAD83" or "NAD83(1986)" and so on.
std::string_view datumLabel(const RunSettings& settings, std::int16_t projectionCode);
std::string_view datumLabel(bool nad27, Adjustment adjustment);

/// "-1986" and so on; empty for NAD27 and for no adjustment.
std::string_view adjustmentSuffix(const RunSettings& settings, std::int16_t projectionCode);

/// "NAVD88" or "NGVD29".
std::string_view verticalDatumLabel(VerticalDatum datum);

}  // namespace tovak::run
