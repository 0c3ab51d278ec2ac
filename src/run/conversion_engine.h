/// The conversion engine: five operations on one instance, called from one thread, one call at a time.
///
/// Arguments and operations bear the engine's own names; a program that drives the engine through another binding finds
/// them under the same ones.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tovak::run {

/// The oldest interface version the program works with.
inline constexpr double kOldestEngineVersion = 103.0;

/// What `GetProjectionFromText` returns for a county it does not know.
inline constexpr std::int16_t kUnknownCounty = 999;

class ConversionEngine {
 public:
  ConversionEngine() = default;
  ConversionEngine(const ConversionEngine&) = delete;
  ConversionEngine& operator=(const ConversionEngine&) = delete;
  virtual ~ConversionEngine() = default;

  /// The interface version, at least 103.
  virtual double GetVersion() = 0;

  /// Converts one point.
  ///
  /// `InNorthLat` and `InEastLon` are northing and easting in the units that `SourceProjection` declares, or latitude
  /// and longitude in decimal degrees, west negative. `Elevation` is in the source's units; callers pass the same
  /// variable as `ElevationOut`, which receives the elevation in the target's units. `OutNorthLat` and `OutEastLon`
  /// are written in the target's units or decimal degrees. `OutInfo` receives a text about the result, of words parted
  /// by one blank: the convergence of the target at the point (D-MM-SS.ss, the sign in front, positive where grid north
  /// is east of true north), the scale factor there (nine decimals), and the target's name. A target without them has
  /// "0-00-00.00" and "1". An engine that computes nothing leaves the text empty.
  /// `LatLongForm` is "S" (degrees, minutes, seconds), "D" (decimal degrees) or empty (the engine's own default); it
  /// touches nothing but the wording of `OutInfo`.
  ///
  /// Returns 0 or less for success. 1 and more is a failure, put into words by `ErrorText`; coordinates and elevation
  /// are then left as they were.
  virtual std::int16_t TovakVert(double& InNorthLat, double& InEastLon, double& Elevation,
                                 const std::string& SourceProjection, double& OutNorthLat, double& OutEastLon,
                                 double& ElevationOut, const std::string& TargetProjection, std::string& OutInfo,
                                 std::string_view LatLongForm = {}) = 0;

  /// The message for a result of `TovakVert`.
  virtual std::string ErrorText(std::int16_t code) = 0;

  /// For -263: the user-defined project's display name, "~" and its projection text with the mark of its unit, or a
  /// text that contains "None Selected"; a text without "~" is the reason why a project that was set up cannot be used.
  /// The engine looks at its project anew. For 0 to 268: the system's name, "~" and its projection text; empty for a
  /// code the engine does not know.
  virtual std::string GetProjectionData(std::int16_t code) = 0;

  /// The projection code of a county zone (county name, one blank, zone word), 999 when unknown. `filled` receives the
  /// letter of the county's state plane zone and, where the zone has a text, a blank and that text; nothing for 999.
  ///
  /// Of a text made of "263" or "263M", one blank and a definition, the engine says whether it could be the
  /// user-defined project: 263, or 999; `filled` receives what to tell the person about it.
  virtual std::int16_t GetProjectionFromText(const std::string& text, std::string& filled) = 0;
};

/// The one function an engine module exports, under the name `kEngineFactoryName`. Returns a new engine, or null when
/// it cannot start; then `reason` receives one line that says why.
using EngineFactory = ConversionEngine*(std::string& reason);
inline constexpr const char* kEngineFactoryName = "createTovakXEngine";

}  // namespace tovak::run
