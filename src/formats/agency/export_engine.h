/// The engine as the agency exports use it: counties by their names, and points between systems by their numbers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "run/conversion_engine.h"
#include "run/projection_code.h"

namespace tovak::formats::agency {

/// Northing and easting, or latitude and longitude in decimal degrees.
struct Position {
  double northLat = 0.0;
  double eastLon = 0.0;
};

/// The county name that the agency's lists give for stations out of state.
inline constexpr std::string_view kOutOfState = "OUT OF STATE";

/// The zone of a county, as found by the engine.
struct FoundZone {
  std::int16_t code = run::kUnknownCounty;
  std::string filled;  ///< the state plane letter, and after a blank the zone's name: "N Lake - North"

  std::string_view stateLetter() const { return std::string_view(filled).substr(0, 1); }
  std::string_view name() const;
  /// The state plane zone: 2 for North, 3 for Central, else 4.
  std::int16_t statePlaneCode() const;
};

class ExportEngine {
 public:
  explicit ExportEngine(run::ConversionEngine& engine) : engine_(engine) {}

  /// Asks for a county by its name and a zone word such as "North", which may be empty.
  void findCounty(std::string_view county, std::string_view zoneWord, FoundZone& zone);
  /// `TovakVert` between two projection texts. 1 or more is a failure.
  std::int16_t convert(const Position& from, const std::string& source, const std::string& target, Position& to);
  /// The text of a failure for the output: the engine's own for a point out of reach, otherwise `otherwise`.
  std::string failureText(std::int16_t errorCode, const char* otherwise);
  std::string errorText(std::int16_t errorCode) { return engine_.ErrorText(errorCode); }

 private:
  run::ConversionEngine& engine_;
  // Reused from line to line, to keep their memory.
  std::string request_;
  std::string info_;
};

}  // namespace tovak::formats::agency
