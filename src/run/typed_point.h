/// A point that a person has typed, before and after it becomes a record.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "run/message.h"
#include "run/point_record.h"
#include "run/run_settings.h"
#include "text/angle.h"

namespace tovak::run {

/// What the entry dialog hands over.
struct TypedTexts {
  std::string number = {};
  std::string name = {};
  std::string northing = {};  ///< or latitude; without any blank
  std::string easting = {};   ///< or longitude; without any blank
  double elevation = 0.0;     ///< orthometric height; heights are in source units
  double geoid = 0.0;
  double ellipsoid = 0.0;
};

/// The form in which the entry dialog takes coordinates: that of angles for latitude and longitude, else the unit.
std::string_view entryHint(const RunSettings& settings);

/// What is wrong while one of the coordinates is still empty; the message's focus is the box to fill.
std::optional<Message> missingCoordinate(const TypedTexts& texts);

/// Fills number, name, coordinates and heights of a record that was reset. Angles stay as they are written, a packed
/// number or decimal degrees; the run interprets them. The texts have to be numbers from end to end, and angles of the
/// form; otherwise the record is left alone and the result says why they are no coordinates.
std::optional<std::string> takeTypedPoint(const TypedTexts& texts, bool latLong, text::AngleForm form,
                                          PointRecord& point);

}  // namespace tovak::run
