/// The conversion engine: five operations and a setting on one instance, called from one thread, one call at a time.
///
/// Operations and arguments keep the engine's own names, the same in every binding.
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
  /// variable as `ElevationOut`, which receives the elevation in the target's units. `OutNorthLat` and `OutEastLon` are
  /// written in the target's units or decimal degrees. `OutInfo` receives a text about the result, with single blanks
  /// between its words: the convergence of the target at the point (D-MM-SS.ss with a leading sign, positive where grid
  /// north is east of true north), the scale factor there (nine decimals), and the target's name. A target without them
  /// has "0-00-00.00" and "1". An engine that computes nothing leaves the text empty, as does an engine that was told
  /// not to make it. `LatLongForm` is "S" (degrees, minutes, seconds), "D" (decimal degrees) or empty (the engine's own
  /// default); it touches nothing but the wording of `OutInfo`.
  ///
  /// Returns 0 or less for success. 1 or more is a failure, described by `ErrorText`; coordinates and elevation are
  /// then left as they were.
  virtual std::int16_t TovakVert(double& InNorthLat, double& InEastLon, double& Elevation,
                                 const std::string& SourceProjection, double& OutNorthLat, double& OutEastLon,
                                 double& ElevationOut, const std::string& TargetProjection, std::string& OutInfo,
                                 std::string_view LatLongForm = {}) = 0;

  /// The message for a result of `TovakVert`.
  virtual std::string ErrorText(std::int16_t code) = 0;

  /// For -263: the user-defined project's display name, "~" and its projection text with the mark of its unit, or a
  /// text that contains "None Selected"; a text without "~" is the reason why a project that was set up cannot be used.
  /// The engine reads its project again. For 0 to 268: the system's name, "~" and its projection text; empty for a code
  /// the engine does not know.
  virtual std::string GetProjectionData(std::int16_t code) = 0;

  /// The projection code of a county zone (county name, one blank, zone word), 999 when unknown. `filled` receives the
  /// letter of the county's state plane zone and, where the zone has a text, a blank and that text; nothing for 999.
  ///
  /// Of a `definitionRequest` the engine says whether the definition could be the user-defined project: 263, or 999;
  /// `filled` receives what to tell the person about it, for 263 with the datum alone in the first line (`toldDatum`).
  ///
  /// With a `projectRequest` the project it names becomes the user-defined one, usable or not, until the next such
  /// request; one without a project brings back the one in the data folder. The answer is that about its definition.
  virtual std::int16_t GetProjectionFromText(const std::string& text, std::string& filled) = 0;

  /// Whether result texts are wanted for the points that follow. They are made unless the engine is told otherwise; an
  /// engine may ignore this.
  virtual void wantResultTexts(bool /*wanted*/) {}
};

/// The one function an engine module exports, under the name `kEngineFactoryName`. Returns a new engine, or null when
/// it cannot start; then `reason` receives one line that says why.
using EngineFactory = ConversionEngine*(std::string& reason);
inline constexpr const char* kEngineFactoryName = "createTovakXEngine";

}  // namespace tovak::run
