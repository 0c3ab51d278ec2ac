/// A point that a person has typed, before and after it becomes a record.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "run/message.h"
#include "run/point_record.h"
#include "run/run_settings.h"
#include "text/angle.h"
#include "text/result.h"

namespace tovak::run {

/// What the entry dialog hands over.
struct TypedTexts {
  std::string number = {};
  std::string name = {};
  std::string northing = {};  ///< without blanks; or latitude as it was typed
  std::string easting = {};   ///< the same, or longitude
  double elevation = 0.0;     ///< orthometric height; heights are in source units
  double geoid = 0.0;
  double ellipsoid = 0.0;
};

/// The form in which the entry dialog takes coordinates: that of angles for latitude and longitude, else the unit.
std::string_view entryHint(const RunSettings& settings);

/// The message while one of the coordinates is still empty; the message's focus is the box to fill.
std::optional<Message> missingCoordinate(const TypedTexts& texts);

/// The record of a typed point. The texts have to be numbers from end to end, or angles (of the form, where they are a
/// number alone); otherwise the error says why they are not coordinates, and `faultyBox`, where it is given, receives
/// the name of the entry dialog's box that is at fault.
text::Result<PointRecord> typedPoint(const TypedTexts& texts, bool latLong, text::AngleForm form,
                                     std::string_view* faultyBox = nullptr);

/// The number of the next point: the digits at the end count up and keep their leading zeros, as 9, 10 or A09, A10. A
/// number without digits at its end stays.
std::string nextTypedNumber(std::string number);

}  // namespace tovak::run
