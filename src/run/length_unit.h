/// The two length units of coordinates and elevations.
#pragma once

namespace tovak::run {

enum class LengthUnit { usSurveyFeet, metres };

/// `value` in the unit `to`. A metre is exactly 39.37/12 U.S. survey feet; between equal units it is unchanged.
constexpr double convertLength(double value, LengthUnit from, LengthUnit to) {
  if (from == to) return value;
  return to == LengthUnit::metres ? value * 12.0 / 39.37 : value * 39.37 / 12.0;
}

constexpr LengthUnit unitOf(bool metres) {
  return metres ? LengthUnit::metres : LengthUnit::usSurveyFeet;
}

}  // namespace tovak::run
