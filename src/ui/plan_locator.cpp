// The small map of the area served, and what shows size and direction on the large one.
#include <QFontInfo>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>

#include "ui/plan_measures.h"
#include "ui/plan_sheet.h"

namespace tovak::ui {
namespace {

/// What the locator shows: the area served, or everything where there is no such area.
std::optional<PlanBox> locatorBox(const PlanModel& model) {
  const PlanArea* const served = findArea(model.areas, PlanAreaKind::areaServed);
  return served != nullptr ? std::optional(served->box) : wholeBox(model);
}

QPointF within(QPointF pixel, const QRectF& frame) {
  return {std::clamp(pixel.x(), frame.left(), frame.right()), std::clamp(pixel.y(), frame.top(), frame.bottom())};
}

void paintLocatorAreas(QPainter& painter, const PlanSheet& sheet, const PlanProjection& small) {
  for (const PlanArea& area : sheet.model.areas) {
    if (area.kind == PlanAreaKind::countyZone || area.kind == PlanAreaKind::areaServed) continue;
    const QRectF box = small.toPixels(area.box).intersected(small.view());
    QPen pen = outlinePen(sheet.colours, area.kind);
    pen.setWidthF(area.kind == PlanAreaKind::statePlane ? 1.0 : 1.5);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box);
    if (area.kind != PlanAreaKind::statePlane) continue;
    painter.setPen(sheet.colours.faint);
    const QFontMetricsF metrics(painter.font());
    if (metrics.horizontalAdvance(area.brief) < box.width() && metrics.ascent() < box.height()) {
      painter.drawText(box, Qt::AlignCenter, area.brief);
    }
  }
}

/// A dot for each point that there is room for; a point outside the locator's area is drawn on its edge.
void paintLocatorPoints(QPainter& painter, const PlanSheet& sheet, const PlanProjection& small) {
  const QRectF& frame = small.view();
  PlanRoom room(frame.adjusted(-2, -2, 2, 2));
  for (const PlanPoint& point : sheet.model.points) {
    if (!point.hasPlace()) continue;
    const QPointF pixel = within(small.toPixel(point.place), frame);
    const QRectF middle(pixel - QPointF(0.5, 0.5), QSizeF(1, 1));
    if (!room.isFree(middle)) continue;
    room.take(middle);
    painter.fillRect(QRectF(pixel - QPointF(1.5, 1.5), QSizeF(3, 3)), sheet.colours.of(point.state));
  }
}

/// The frame of what the map shows; when it is too small to be seen, crossed lines lead to it.
void paintViewFrame(QPainter& painter, const PlanSheet& sheet, const PlanProjection& small) {
  const QRectF& frame = small.view();
  const QRectF shown = small.toPixels(sheet.plan.shown());
  painter.setPen(QPen(sheet.colours.chosen, 1.5));
  painter.setBrush(Qt::NoBrush);
  if (shown.width() < 8 || shown.height() < 8) {
    const QPointF middle = within(shown.center(), frame);
    const double gap = 6;
    painter.drawEllipse(middle, gap, gap);
    painter.setPen(QPen(sheet.colours.chosen, 1));
    painter.drawLine(QPointF(frame.left(), middle.y()), QPointF(middle.x() - gap, middle.y()));
    painter.drawLine(QPointF(middle.x() + gap, middle.y()), QPointF(frame.right(), middle.y()));
    painter.drawLine(QPointF(middle.x(), frame.top()), QPointF(middle.x(), middle.y() - gap));
    painter.drawLine(QPointF(middle.x(), middle.y() + gap), QPointF(middle.x(), frame.bottom()));
  } else if (shown.intersects(frame) && !shown.contains(frame)) {
    painter.drawRect(shown.intersected(frame));
  }
}

void paintNorthArrow(QPainter& painter, const PlanSheet& sheet, QPointF foot, double high) {
  const double half = high * 0.22;
  const QPointF tip = foot - QPointF(0, high);
  const QPointF notch = foot - QPointF(0, high * 0.25);
  painter.setPen(QPen(sheet.colours.ink, 1));
  painter.setBrush(sheet.colours.ink);
  painter.drawPolygon(QPolygonF({tip, foot + QPointF(-half, 0), notch}));
  painter.setBrush(sheet.colours.paper);
  painter.drawPolygon(QPolygonF({tip, foot + QPointF(half, 0), notch}));
  const double em = sheet.metrics().height();
  painter.drawText(QRectF(tip.x() - em, tip.y() - em, 2 * em, em), Qt::AlignCenter, "N");
}

}  // namespace

std::optional<PlanProjection> locatorProjection(const PlanModel& model, const PlanLayout& layout) {
  const std::optional<PlanBox> box = locatorBox(model);
  if (!box || layout.locator.width() < 20 || layout.locator.height() < 20) return std::nullopt;
  return PlanProjection::fitted(*box, layout.locator, 0);
}

void paintLocator(QPainter& painter, const PlanSheet& sheet) {
  const std::optional<PlanProjection> locator = locatorProjection(sheet.model, sheet.layout);
  if (!locator) return;
  const PlanProjection& small = *locator;
  const QRectF& frame = small.view();
  painter.save();
  painter.setClipRect(frame.adjusted(-1, -1, 1, 1));
  painter.fillRect(frame, sheet.colours.paper);
  QFont font = sheet.font;
  font.setPointSizeF(QFontInfo(sheet.font).pointSizeF() * 0.75);
  painter.setFont(font);
  paintLocatorAreas(painter, sheet, small);
  paintViewFrame(painter, sheet, small);
  painter.setRenderHint(QPainter::Antialiasing, false);
  paintLocatorPoints(painter, sheet, small);
  painter.setPen(QPen(sheet.colours.faint, 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(frame);
  painter.restore();
}

void paintScale(QPainter& painter, const PlanSheet& sheet, PlanRoom& room) {
  const QRectF& map = sheet.layout.map;
  const double em = sheet.metrics().height();
  const double metresPerPixel = sheet.plan.metresPerPixel();
  const ScaleBar bar = scaleBar(std::min(map.width() * 0.3, em * 9) * metresPerPixel, sheet.feet);
  const double width = bar.metres / metresPerPixel;
  const double text = sheet.metrics().horizontalAdvance(bar.label) + 2;
  const QPointF corner = map.bottomLeft() + QPointF(em * 0.6, -em * 0.6);
  const QRectF scale(corner - QPointF(0, em * 1.5), QSizeF(std::max(width, text), em * 1.5));
  const QPointF north = corner + QPointF(scale.width() + em * 1.2, 0);
  QRectF ground = scale.united(QRectF(north - QPointF(em * 0.5, em * 2.5), QSizeF(em, em * 2.5)));
  ground.adjust(-em * 0.3, -em * 0.2, em * 0.2, em * 0.3);
  room.take(ground);
  QColor paper = sheet.colours.paper;
  paper.setAlphaF(0.85F);
  painter.fillRect(ground, paper);
  painter.setPen(sheet.colours.ink);
  painter.drawText(QRectF(scale.topLeft(), QSizeF(text, em)), Qt::AlignLeft | Qt::AlignVCenter, bar.label);
  const double high = em * 0.3;
  for (int part = 0; part < 4; ++part) {
    painter.setPen(QPen(sheet.colours.ink, 1));
    painter.setBrush(part % 2 == 0 ? sheet.colours.ink : sheet.colours.paper);
    painter.drawRect(QRectF(corner.x() + width * part / 4, corner.y() - high, width / 4, high));
  }
  paintNorthArrow(painter, sheet, north, em * 1.5);
}

}  // namespace tovak::ui
