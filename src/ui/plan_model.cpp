#include "ui/plan_model.h"

#include <QStringList>
#include <algorithm>
#include <string>
#include <utility>

#include "run/projection_code.h"
#include "ui/plan_measures.h"
#include "ui/qt_text.h"

namespace tovak::ui {
namespace {

/// The heading names at most this many county zones.
constexpr std::size_t kMostCounties = 4;

QString briefName(const QString& name) {
  QString brief = name.left(name.lastIndexOf(QLatin1String(", NAD")));
  for (const QLatin1String prefix : {QLatin1String("State plane "), QLatin1String("County zone ")}) {
    if (brief.startsWith(prefix)) brief.remove(0, prefix.size());
  }
  return brief.replace(QLatin1String("Universal Transverse Mercator"), QLatin1String("UTM"));
}

PlanArea areaOf(run::ConversionEngine& engine, const run::UsualArea& area, PlanAreaKind kind) {
  const std::string data = engine.GetProjectionData(area.code);
  const QString name = toQString(std::string_view(data).substr(0, data.find('~')));
  return {kind, name, briefName(name), {area.south, area.north, area.west, area.east}};
}

std::optional<PlanAreaKind> zoneKind(std::int16_t code) {
  if (run::isStatePlane(code)) return PlanAreaKind::statePlane;
  const std::int16_t onNad83 = run::twinOn(false, code);
  const bool county = onNad83 >= run::kFirstCountyZone && onNad83 <= run::kLastCountyZone;
  return county ? std::optional(PlanAreaKind::countyZone) : std::nullopt;
}

bool counts(const PlanPoint& point) {
  return point.hasPlace() && point.state != PlanState::refused;
}

void include(std::optional<PlanBox>& box, run::Place place) {
  if (!box) box = PlanBox{place.latitude, place.latitude, place.longitude, place.longitude};
  box->include(place);
}

int countInside(const std::vector<PlanPoint>& points, const PlanBox& box) {
  return static_cast<int>(
      std::ranges::count_if(points, [&](const PlanPoint& point) { return counts(point) && box.holds(point.place); }));
}

struct Inside {
  const PlanArea* area = nullptr;
  int points = 0;
};

/// The number of points in each area of a kind, largest first; areas without points are left out.
std::vector<Inside> pointsInside(const PlanModel& model, PlanAreaKind kind) {
  std::vector<Inside> found;
  for (const PlanArea& area : model.areas) {
    const int inside = area.kind == kind ? countInside(model.points, area.box) : 0;
    if (inside > 0) found.push_back({&area, inside});
  }
  std::ranges::stable_sort(found, std::ranges::greater(), &Inside::points);
  return found;
}

QString pointsLie(int points, int all) {
  if (all == 1) return "The point lies";
  if (points == all) return QString("All %1 points lie").arg(all);
  return QString(points == 1 ? "%1 of %2 points lies" : "%1 of %2 points lie").arg(points).arg(all);
}

QString countsByName(const std::vector<Inside>& zones, int all) {
  QStringList texts;
  for (const Inside& zone : zones) {
    if (static_cast<std::size_t>(texts.size()) == kMostCounties) {
      texts << QString("%1 more").arg(zones.size() - kMostCounties);
      break;
    }
    texts << zone.area->brief + (zone.points == all ? QString(" (all)") : QString(" (%1)").arg(zone.points));
  }
  return texts.join(", ");
}

/// The distance and direction from the middle of the points to the nearest area of a kind; empty when there is no such
/// area.
QString nearestText(const PlanModel& model, PlanAreaKind kind, bool feet) {
  const PlanBox box = pointBox(model.points).value_or(PlanBox());
  const run::Place middle = {(box.south + box.north) / 2, (box.west + box.east) / 2};
  const PlanArea* nearest = nullptr;
  PlanCourse shortest;
  for (const PlanArea& area : model.areas) {
    if (area.kind != kind) continue;
    const PlanCourse course = planCourse(middle, {std::clamp(middle.latitude, area.box.south, area.box.north),
                                                  std::clamp(middle.longitude, area.box.west, area.box.east)});
    if (nearest != nullptr && course.metres >= shortest.metres) continue;
    nearest = &area;
    shortest = course;
  }
  // Scattered points may surround a zone.
  const bool around = nearest == nullptr || shortest.metres < 1.0;
  return around ? QString() : " (nearest: " + nearest->brief + ", " + wayText(shortest, feet) + ")";
}

QString placesText(const PlanModel& model, int all, bool feet) {
  const struct {
    PlanAreaKind kind;
    const char *some, *none;
  } kinds[] = {{PlanAreaKind::statePlane, "State plane zones: ", "No state plane zone"},
               {PlanAreaKind::countyZone, "county zones: ", "no county zone"}};
  QStringList texts;
  for (const auto& of : kinds) {
    const std::vector<Inside> zones = pointsInside(model, of.kind);
    texts << (zones.empty() ? of.none + nearestText(model, of.kind, feet) : of.some + countsByName(zones, all));
  }
  return texts.join("; ");
}

struct Role {
  PlanAreaKind kind;
  const char* area;
  const char* brief;
};
constexpr Role kRoles[] = {
    {PlanAreaKind::source, "the usual area of the source, ", "the source's area"},
    {PlanAreaKind::target, "the usual area of the target, ", "the target's area"},
    {PlanAreaKind::areaServed, "", "the area served"},
};

void say(PlanHeading& heading, int points, int all, const char* where, const Role& role, const PlanArea& area) {
  heading.verdict = pointsLie(points, all) + ' ' + where + ' ' + role.area + area.name;
  heading.brief = QString("%1 of %2 %3 %4").arg(points).arg(all).arg(where, role.brief);
  if (role.kind != PlanAreaKind::areaServed) heading.brief += " (" + area.brief + ')';
}

}  // namespace

PlanState stateOf(run::Fate fate) {
  switch (fate) {
    case run::Fate::Converted:
      return PlanState::converted;
    case run::Fate::Doubtful:
      return PlanState::doubtful;
    case run::Fate::Refused:
      break;
  }
  return PlanState::refused;
}

std::vector<PlanArea> planAreas(const run::UsualAreas& areas, run::ConversionEngine& engine, std::int16_t source,
                                std::int16_t target, const PlanBox& areaServed) {
  std::vector<PlanArea> plan = {{PlanAreaKind::areaServed, "the area served", "Area served", areaServed}};
  const bool nad27 = run::isNad27(source);
  for (const run::UsualArea& area : areas) {
    const std::optional<PlanAreaKind> kind = zoneKind(area.code);
    if (kind && run::isNad27(area.code) == nad27) plan.push_back(areaOf(engine, area, *kind));
  }
  if (const run::UsualArea* area = findUsualArea(areas, source)) {
    plan.push_back(areaOf(engine, *area, PlanAreaKind::source));
  }
  if (const run::UsualArea* area = findUsualArea(areas, target)) {
    plan.push_back(areaOf(engine, *area, PlanAreaKind::target));
  }
  std::ranges::stable_sort(plan, {}, &PlanArea::kind);
  return plan;
}

const PlanArea* findArea(const std::vector<PlanArea>& areas, PlanAreaKind kind) {
  const auto found = std::ranges::find(areas, kind, &PlanArea::kind);
  return found == areas.end() ? nullptr : &*found;
}

std::optional<PlanBox> pointBox(const std::vector<PlanPoint>& points) {
  const bool onlyRefused = std::ranges::none_of(points, counts);
  std::optional<PlanBox> box;
  for (const PlanPoint& point : points) {
    if (onlyRefused ? point.hasPlace() : counts(point)) include(box, point.place);
  }
  return box;
}

std::optional<PlanBox> wholeBox(const PlanModel& model) {
  std::optional<PlanBox> box;
  for (const PlanPoint& point : model.points) {
    if (point.hasPlace()) include(box, point.place);
  }
  for (const PlanArea& area : model.areas) {
    include(box, {area.box.south, area.box.west});
    include(box, {area.box.north, area.box.east});
  }
  return box;
}

PlanHeading planHeading(const PlanModel& model, bool feet) {
  PlanHeading heading;
  const int all = static_cast<int>(std::ranges::count_if(model.points, counts));
  heading.verdict = heading.brief =
      all == 0 ? "No point to show" : QString(all == 1 ? "%1 point" : "%1 points").arg(all);
  if (all == 0) return heading;
  heading.places = placesText(model, all, feet);
  if (model.sampledFrom != 0) {
    const QString sample = QString("A sample of %L1 from %L2 points. ").arg(model.points.size()).arg(model.sampledFrom);
    heading.places.prepend(sample);
  }
  bool told = false;
  for (const Role& role : kRoles) {
    const PlanArea* const area = findArea(model.areas, role.kind);
    if (area == nullptr) continue;
    const int outside = all - countInside(model.points, area->box);
    if (outside > 0) {
      say(heading, outside, all, "outside", role, *area);
      heading.left = area->box;
      return heading;
    }
    if (!std::exchange(told, true)) say(heading, all, all, "in", role, *area);
  }
  return heading;
}

}  // namespace tovak::ui
