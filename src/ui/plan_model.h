/// What a plan shows: points and areas in their places, and what to say about them in words.
#pragma once

#include <QString>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "run/conversion_engine.h"
#include "run/fate.h"
#include "run/usual_areas.h"
#include "ui/plan_projection.h"

namespace tovak::ui {

/// In the order of painting: later ones cover earlier ones.
enum class PlanState : std::uint8_t { converted, other, doubtful, refused };
inline constexpr int kPlanStates = 4;

PlanState stateOf(run::Fate fate);

struct PlanPoint {
  run::Place place;
  QString label;  ///< the point's number
  PlanState state = PlanState::converted;
  int row = -1;  ///< by which the owner identifies the point

  /// A refused point may have none.
  bool hasPlace() const { return std::abs(place.latitude) <= 90.0 && std::abs(place.longitude) <= 180.0; }
};

/// In the order of painting.
enum class PlanAreaKind : std::uint8_t { areaServed, countyZone, statePlane, source, target };

struct PlanArea {
  PlanAreaKind kind = PlanAreaKind::countyZone;
  QString name;   ///< the system's full name: "State plane South, NAD83"
  QString brief;  ///< what distinguishes it from others of its kind: "South"
  PlanBox box;
};

struct PlanModel {
  std::vector<PlanPoint> points;
  std::vector<PlanArea> areas;
  std::size_t sampledFrom = 0;  ///< how many points there are where these are a sample
};

/// The area served, the state plane and county zones on the source's datum that have a usual area, and the usual areas
/// of source and target. The names are the engine's. Codes without an area, such as those for latitude and longitude or
/// for no projection, add nothing.
std::vector<PlanArea> planAreas(const run::UsualAreas& areas, run::ConversionEngine& engine, std::int16_t source,
                                std::int16_t target, const PlanBox& areaServed);

const PlanArea* findArea(const std::vector<PlanArea>& areas, PlanAreaKind kind);

/// The box of all points that are not refused, or of all points when there are none of these; nothing when no point has
/// a place.
std::optional<PlanBox> pointBox(const std::vector<PlanPoint>& points);
/// The box of all points and areas.
std::optional<PlanBox> wholeBox(const PlanModel& model);

/// The two lines above a plan. Refused points do not count.
struct PlanHeading {
  QString verdict;              ///< whether the points lie where points of source and target usually do
  QString brief;                ///< the same, for where there is little room
  QString places;               ///< the state plane and county zones that they lie in, or the nearest ones
  std::optional<PlanBox> left;  ///< the area that some points lie outside of: a warning
};
PlanHeading planHeading(const PlanModel& model, bool feet);

}  // namespace tovak::ui
