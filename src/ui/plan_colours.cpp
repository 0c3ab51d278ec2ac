#include "ui/plan_colours.h"

#include <QPainter>
#include <QPolygonF>

namespace tovak::ui {
namespace {

QColor mixed(const QColor& paper, const QColor& ink, double part) {
  const auto between = [part](float from, float to) { return static_cast<float>(from + (to - from) * part); };
  return QColor::fromRgbF(between(paper.redF(), ink.redF()), between(paper.greenF(), ink.greenF()),
                          between(paper.blueF(), ink.blueF()));
}

}  // namespace

PlanColours planColours(const QPalette& palette) {
  const QColor paper = palette.color(QPalette::Base);
  const QColor ink = palette.color(QPalette::Text);
  const bool dark = paper.lightness() < 128;
  PlanColours colours;
  colours.paper = paper;
  colours.ink = ink;
  colours.beyond = mixed(paper, ink, 0.09);
  colours.grid = mixed(paper, ink, 0.2);
  colours.faint = mixed(paper, ink, 0.62);
  colours.chosen = palette.color(QPalette::Highlight);
  if (dark) {
    colours.chosen = colours.chosen.lighter(150);
    colours.warning = QColor(255, 140, 120);
    colours.source = QColor(110, 180, 255);
    colours.target = QColor(220, 150, 235);
    colours.states = {QColor(120, 215, 160), QColor(190, 190, 190), QColor(255, 190, 70), QColor(255, 110, 95)};
  } else {
    colours.warning = QColor(180, 30, 20);
    colours.source = QColor(0, 90, 175);
    colours.target = QColor(140, 50, 150);
    colours.states = {QColor(0, 105, 70), QColor(95, 95, 95), QColor(190, 105, 0), QColor(200, 25, 25)};
  }
  return colours;
}

QPen outlinePen(const PlanColours& colours, PlanAreaKind kind) {
  switch (kind) {
    case PlanAreaKind::source:
      return {colours.source, 2.0, Qt::SolidLine};
    case PlanAreaKind::target:
      return {colours.target, 2.0, Qt::DashLine};
    case PlanAreaKind::areaServed:
      return {colours.faint, 1.5, Qt::DashDotLine};
    case PlanAreaKind::statePlane:
      return {mixed(colours.paper, colours.ink, 0.5), 1.0, Qt::DashDotDotLine};
    case PlanAreaKind::countyZone:
      break;
  }
  return {mixed(colours.paper, colours.ink, 0.36), 1.0, Qt::DotLine};
}

QString stateWord(PlanState state) {
  constexpr std::array kWords = {"converted", "other", "doubtful", "refused"};
  return kWords[static_cast<std::size_t>(state)];
}

void drawMark(QPainter& painter, const PlanColours& colours, PlanState state, QPointF middle, double radius) {
  const QColor colour = colours.of(state);
  const QPointF corner(radius, radius);
  painter.setBrush(state == PlanState::other ? colours.paper : colour);
  painter.setPen(QPen(state == PlanState::other ? colour : colours.paper, radius > 2 ? 1.0 : 0.0));
  switch (state) {
    case PlanState::converted:
      painter.drawEllipse(middle, radius, radius);
      return;
    case PlanState::other:
      painter.drawRect(QRectF(middle - corner, middle + corner));
      return;
    case PlanState::doubtful:
      painter.drawPolygon(QPolygonF({middle + QPointF(0, -1.4 * radius), middle + QPointF(-1.3 * radius, radius),
                                     middle + QPointF(1.3 * radius, radius)}));
      return;
    case PlanState::refused:
      break;
  }
  painter.setPen(QPen(colour, radius / 2, Qt::SolidLine, Qt::FlatCap));
  painter.drawLine(middle - corner, middle + corner);
  painter.drawLine(middle + QPointF(-radius, radius), middle + QPointF(radius, -radius));
}

}  // namespace tovak::ui
