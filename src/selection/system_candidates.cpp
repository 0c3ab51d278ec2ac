#include "selection/system_candidates.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "run/projection_box.h"
#include "run/projection_code.h"
#include "run/usual_areas.h"

namespace tovak::selection {
namespace {

/// More points say nothing new about a system; whoever takes it up tries all of them.
constexpr std::size_t kPoints = 25;

/// How far the points lie from the middle of the area, 1 on its edge; nothing when one is outside.
std::optional<double> remoteness(const std::vector<run::PreviewRow>& rows, const run::UsualArea& area, bool metres,
                                 run::ConversionEngine& engine) {
  const std::string source = run::projectionText(area.code, metres);
  const std::string target =
      run::projectionText(run::isNad27(area.code) ? run::kLatLongNad27 : run::kLatLongNad83, false);
  double farthest = 0.0;
  std::size_t seen = 0;
  std::string info;
  for (const run::PreviewRow& row : rows) {
    if (!row.position || seen++ == kPoints) continue;
    run::SourcePosition point = *row.position;
    run::Place place;
    double elevation = 0.0;
    if (engine.TovakVert(point.northing, point.easting, elevation, source, place.latitude, place.longitude, elevation,
                         target, info) >= 1) {
      return std::nullopt;
    }
    const double north = std::fabs(2.0 * place.latitude - area.south - area.north) / (area.north - area.south);
    const double east = std::fabs(2.0 * place.longitude - area.west - area.east) / (area.east - area.west);
    farthest = std::max({farthest, north, east});
    if (farthest > 1.0) return std::nullopt;
  }
  return seen == 0 ? std::nullopt : std::optional(farthest);
}

}  // namespace

std::vector<SystemCandidate> systemCandidates(const std::vector<run::PreviewRow>& rows, const Selections& selections,
                                              const SuggestionTools& tools) {
  std::vector<SystemCandidate> candidates;
  if (tools.formats.areas == nullptr) return candidates;
  const run::ProjectionBox chosen = projectionBox(selections, Side::Source);
  for (const run::UsualArea& area : *tools.formats.areas) {
    for (const bool metres : {false, true}) {
      const int changes = (run::isNad27(area.code) != run::isNad27(chosen.code) ? 4 : 0) +
                          (area.code != chosen.code ? 2 : 0) + (metres != chosen.metres ? 1 : 0);
      if (changes == 0) continue;
      if (const std::optional<double> far = remoteness(rows, area, metres, tools.engine)) {
        candidates.push_back({.code = area.code, .metres = metres, .merit = changes + *far / 2.0});
      }
    }
  }
  std::ranges::sort(candidates, {}, &SystemCandidate::merit);
  return candidates;
}

}  // namespace tovak::selection
