/// The engine as the agency exports use it: counties by their names, and points between systems by their numbers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "run/conversion_engine.h"

namespace tovak::formats {

/// Northing and easting, or latitude and longitude in decimal degrees.
struct Position {
  double northLat = 0.0;
  double eastLon = 0.0;
};

/// The name that the agency's lists give for stations beyond the state's counties.
inline constexpr std::string_view kOutOfState = "OUT OF STATE";

/// Codes from here on are no county zones.
inline constexpr std::int16_t kFirstBeyondCounties = 103;

/// The zone of a county as the engine told it.
struct CountyZone {
  std::int16_t code = run::kUnknownCounty;
  std::string filled;  ///< the state plane letter, and behind a blank the zone's name: "N Lake - North"

  std::string_view stateLetter() const { return std::string_view(filled).substr(0, 1); }
  std::string_view name() const;
  /// The state plane zone: 2 for North, 3 for Central, else 4.
  std::int16_t statePlaneCode() const;
};

class ExportEngine {
 public:
  explicit ExportEngine(run::ConversionEngine& engine) : engine_(engine) {}

  /// Asks for a county by its name and a zone word such as "North", which may be empty.
  void findCounty(std::string_view county, std::string_view zoneWord, CountyZone& zone);
  /// `TovakVert` between two projection texts. 1 and more is a failure.
  std::int16_t convert(const Position& from, const std::string& source, const std::string& target, Position& to);
  /// The text of a failure for the output: the engine's for a point out of reach, for others `otherwise`.
  std::string failureText(std::int16_t errorCode, const char* otherwise);
  std::string errorText(std::int16_t errorCode) { return engine_.ErrorText(errorCode); }

 private:
  run::ConversionEngine& engine_;
  // Texts that keep their memory from line to line.
  std::string request_;
  std::string info_;
};

}  // namespace tovak::formats
