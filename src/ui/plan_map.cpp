// The map of a plan: ground, outlines, graticule and names.
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

#include "ui/plan_measures.h"
#include "ui/plan_sheet.h"

namespace tovak::ui {
namespace {

/// The four edges as far as they lie in the map. Dashed lines far longer than the map would take for ever to draw.
std::vector<QLineF> visibleEdges(const QRectF& box, const QRectF& map) {
  const QRectF part = box.intersected(map);
  std::vector<QLineF> edges;
  if (part.isEmpty()) return edges;
  for (const double x : {box.left(), box.right()}) {
    if (x >= map.left() && x <= map.right()) edges.emplace_back(x, part.top(), x, part.bottom());
  }
  for (const double y : {box.top(), box.bottom()}) {
    if (y >= map.top() && y <= map.bottom()) edges.emplace_back(part.left(), y, part.right(), y);
  }
  return edges;
}

void paintGround(QPainter& painter, const PlanSheet& sheet) {
  const QRectF& map = sheet.layout.map;
  const PlanArea* const served = findArea(sheet.model.areas, PlanAreaKind::areaServed);
  painter.fillRect(map, served != nullptr ? sheet.colours.beyond : sheet.colours.paper);
  if (served != nullptr) painter.fillRect(sheet.plan.toPixels(served->box).intersected(map), sheet.colours.paper);
  if (const PlanArea* const source = findArea(sheet.model.areas, PlanAreaKind::source)) {
    QColor tint = sheet.colours.source;
    tint.setAlphaF(0.07F);
    painter.fillRect(sheet.plan.toPixels(source->box).intersected(map), tint);
  }
}

void paintOutlines(QPainter& painter, const PlanSheet& sheet) {
  for (const PlanArea& area : sheet.model.areas) {
    painter.setPen(outlinePen(sheet.colours, area.kind));
    for (const QLineF& edge : visibleEdges(sheet.plan.toPixels(area.box), sheet.layout.map)) painter.drawLine(edge);
  }
}

struct Graticule {
  double latitudeStep;
  double longitudeStep;
  std::vector<double> latitudes;
  std::vector<double> longitudes;
};

std::vector<double> multiples(double step, double from, double to) {
  std::vector<double> values;
  for (double count = std::ceil(from / step); count * step <= to; ++count) values.push_back(count * step);
  return values;
}

Graticule graticule(const PlanSheet& sheet) {
  const QFontMetricsF metrics = sheet.metrics();
  const PlanBox shown = sheet.plan.shown();
  Graticule lines = {};
  lines.latitudeStep = graticuleStep(sheet.plan.latitudePerPixel() * metrics.height() * 4);
  // Longitude labels are side by side: the finer they are, the wider.
  lines.longitudeStep = graticuleStep(sheet.plan.longitudePerPixel() * metrics.height() * 4);
  const QString sample = planAngle(shown.west, lines.longitudeStep, PlanAxis::longitude);
  const double width = metrics.horizontalAdvance(sample) + metrics.height() * 2;
  lines.longitudeStep = std::max(lines.longitudeStep, graticuleStep(sheet.plan.longitudePerPixel() * width));
  lines.latitudes = multiples(lines.latitudeStep, std::max(shown.south, -90.0), std::min(shown.north, 90.0));
  lines.longitudes = multiples(lines.longitudeStep, std::max(shown.west, -180.0), std::min(shown.east, 180.0));
  return lines;
}

void paintGrid(QPainter& painter, const PlanSheet& sheet, const Graticule& lines) {
  const QRectF& map = sheet.layout.map;
  painter.setPen(QPen(sheet.colours.grid, 1));
  for (const double latitude : lines.latitudes) {
    const double y = sheet.plan.toPixel({latitude, 0}).y();
    painter.drawLine(QPointF(map.left(), y), QPointF(map.right(), y));
  }
  for (const double longitude : lines.longitudes) {
    const double x = sheet.plan.toPixel({0, longitude}).x();
    painter.drawLine(QPointF(x, map.top()), QPointF(x, map.bottom()));
  }
}

/// Paints a text in the first place that has room; false when none has.
bool paintText(QPainter& painter, PlanRoom& room, const QString& text, std::span<const QRectF> places) {
  const std::optional<QRectF> place = room.takeFirst(places);
  if (place) painter.drawText(*place, Qt::AlignCenter, text);
  return place.has_value();
}

void paintGridLabels(QPainter& painter, const PlanSheet& sheet, const Graticule& lines, PlanRoom& room) {
  const QRectF& map = sheet.layout.map;
  const QFontMetricsF metrics = sheet.metrics();
  painter.setPen(sheet.colours.faint);
  for (const double longitude : lines.longitudes) {
    const QString text = planAngle(longitude, lines.longitudeStep, PlanAxis::longitude);
    const QSizeF size(metrics.horizontalAdvance(text) + 2, metrics.height());
    const double x = sheet.plan.toPixel({0, longitude}).x();
    const QRectF place(QPointF(x + 2, map.top() + 2), size);
    paintText(painter, room, text, {&place, 1});
  }
  for (const double latitude : lines.latitudes) {
    const QString text = planAngle(latitude, lines.latitudeStep, PlanAxis::latitude);
    const QSizeF size(metrics.horizontalAdvance(text) + 2, metrics.height());
    const double y = sheet.plan.toPixel({latitude, 0}).y();
    const QRectF place(QPointF(map.left() + 3, y - size.height()), size);
    paintText(painter, room, text, {&place, 1});
  }
}

/// The name of an area, and a shorter one.
std::array<QString, 2> namesOnMap(const PlanArea& area) {
  switch (area.kind) {
    case PlanAreaKind::source:
      return {"Source: " + area.name, "Source: " + area.brief};
    case PlanAreaKind::target:
      return {"Target: " + area.name, "Target: " + area.brief};
    case PlanAreaKind::statePlane:
      return {"State plane " + area.brief, area.brief};
    case PlanAreaKind::areaServed:
    case PlanAreaKind::countyZone:
      break;
  }
  return {area.brief, area.brief};
}

/// Along the top and bottom of an area, in two lines; for a county zone, its middle first.
std::vector<QRectF> placesInside(const QRectF& part, QSizeF size, PlanAreaKind kind) {
  std::vector<QRectF> places;
  const double middle = part.center().x() - size.width() / 2;
  const double right = part.right() - size.width();
  if (kind == PlanAreaKind::countyZone) {
    places.emplace_back(QPointF(middle, part.center().y() - size.height() / 2), size);
  }
  for (const double down : {0.0, 1.1 * size.height()}) {
    for (const double y : {part.top() + down, part.bottom() - size.height() - down}) {
      for (const double x : {part.left(), middle, right}) places.emplace_back(QPointF(x, y), size);
    }
  }
  return places;
}

/// Whether the area already has a name as source or target.
bool namedAlready(const PlanSheet& sheet, const PlanArea& area) {
  if (area.kind != PlanAreaKind::statePlane && area.kind != PlanAreaKind::countyZone) return false;
  return std::ranges::any_of(sheet.model.areas, [&](const PlanArea& other) {
    const bool role = other.kind == PlanAreaKind::source || other.kind == PlanAreaKind::target;
    return role && other.box == area.box;
  });
}

void paintName(QPainter& painter, const PlanSheet& sheet, const PlanArea& area, PlanRoom& room) {
  const QFontMetricsF metrics(painter.font());
  const QRectF box = sheet.plan.toPixels(area.box);
  // An area whose outline is out of sight gets no name: nothing would show what the name belongs to.
  if (visibleEdges(box, sheet.layout.map).empty()) return;
  const QRectF part = box.intersected(sheet.layout.map).adjusted(4, 3, -4, -3);
  for (const QString& text : namesOnMap(area)) {
    const QSizeF size(metrics.horizontalAdvance(text) + 2, metrics.height());
    if (size.width() > part.width() || size.height() > part.height()) continue;
    if (paintText(painter, room, text, placesInside(part, size, area.kind))) return;
  }
}

void paintNames(QPainter& painter, const PlanSheet& sheet, PlanAreaKind kind, PlanRoom& room) {
  const bool role = kind == PlanAreaKind::source || kind == PlanAreaKind::target;
  painter.setPen(role ? outlinePen(sheet.colours, kind).color() : sheet.colours.faint);
  for (const PlanArea& area : sheet.model.areas) {
    if (area.kind == kind && !namedAlready(sheet, area)) paintName(painter, sheet, area, room);
  }
}

}  // namespace

void paintMap(QPainter& painter, const PlanSheet& sheet, PlanRoom& room) {
  painter.save();
  painter.setClipRect(sheet.layout.map);
  painter.setFont(sheet.font);
  const Graticule lines = graticule(sheet);
  paintGround(painter, sheet);
  paintGrid(painter, sheet, lines);
  paintOutlines(painter, sheet);
  paintScale(painter, sheet, room);
  paintPoints(painter, sheet, room);
  paintGridLabels(painter, sheet, lines, room);
  QFont bold = sheet.font;
  bold.setBold(true);
  painter.setFont(bold);
  paintNames(painter, sheet, PlanAreaKind::source, room);
  paintNames(painter, sheet, PlanAreaKind::target, room);
  painter.setFont(sheet.font);
  paintNames(painter, sheet, PlanAreaKind::statePlane, room);
  paintNumbers(painter, sheet, room);
  QFont italic = sheet.font;
  italic.setItalic(true);
  painter.setFont(italic);
  paintNames(painter, sheet, PlanAreaKind::areaServed, room);
  paintNames(painter, sheet, PlanAreaKind::countyZone, room);
  painter.restore();
}

}  // namespace tovak::ui
