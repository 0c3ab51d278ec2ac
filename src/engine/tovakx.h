/// The conversion engine on PROJ.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/catalogue.h"
#include "engine/conversion_pair.h"
#include "engine/county_zones.h"
#include "engine/datum_grid.h"
#include "engine/datum_shift.h"
#include "engine/error.h"
#include "engine/proj_objects.h"
#include "engine/project.h"
#include "engine/projection_text.h"
#include "engine/projections.h"
#include "run/conversion_engine.h"

namespace tovak::engine {

/// Knows the systems of the catalogue, the county zones of the agency's file and the one user-defined project, in
/// metres and U.S. survey feet.
///
/// The projection texts are those that `readProjectionText` describes; a pair of them is prepared when it first comes,
/// so further points of the last two pairs cost no more than their own computation.
class TovakX final : public run::ConversionEngine {
 public:
  /// Null when PROJ, the file of the county zones or that of the known grids is not in order; then `reason` receives
  /// one line that says why.
  static std::unique_ptr<TovakX> create(std::string& reason);

  double GetVersion() override;
  std::int16_t TovakVert(double& InNorthLat, double& InEastLon, double& Elevation, const std::string& SourceProjection,
                         double& OutNorthLat, double& OutEastLon, double& ElevationOut,
                         const std::string& TargetProjection, std::string& OutInfo,
                         std::string_view LatLongForm = {}) override;
  std::string ErrorText(std::int16_t code) override;
  std::string GetProjectionData(std::int16_t code) override;
  std::int16_t GetProjectionFromText(const std::string& text, std::string& filled) override;
  void wantResultTexts(bool wanted) override { resultTextsWanted_ = wanted; }

 private:
  /// A pair of projection texts and what was prepared for them; at first two empty texts.
  struct Prepared {
    std::string sourceText;
    std::string targetText;
    Error error = Error::unreadableText;
    ConversionPair pair;
    std::string name;            // of the target, as it ends the result text
    std::string nameForDecimal;  // the same when decimal degrees are asked for

    bool isFor(const std::string& source, const std::string& target) const {
      return source == sourceText && target == targetText;
    }
  };

  explicit TovakX(ProjContext context);
  bool readCounties(std::string& reason);
  void readProject();
  void takeGivenProject(std::string_view lines, run::LengthUnit unit);
  const Prepared& pairFor(const std::string& sourceText, const std::string& targetText);
  std::string projectData(bool bareName);
  const CoordinateSystem* find(std::int16_t code);
  Prepared prepare(const std::string& sourceText, const std::string& targetText);
  Error preparePair(std::string_view sourceText, std::string_view targetText, ConversionPair& pair);
  Error prepareSide(const ProjectionText& text, Error unknown, Side& side);

  ProjContext context_;                    // outlives the objects made in it
  std::vector<CoordinateSystem> systems_;  // unchanged once the engine has started
  std::vector<CatalogueZone> zones_;
  std::vector<KnownGrid> knownGrids_;
  std::optional<run::UserProject> givenProject_;  // in place of the one in the data folder
  ProjectResult project_;
  bool projectRead_ = false;
  Projections projections_;
  DatumShift shift_;
  std::array<Prepared, 2> pairs_;  // the last two, since points may go there and back by turns
  std::size_t current_ = 0;
  bool resultTextsWanted_ = true;
};

}  // namespace tovak::engine
