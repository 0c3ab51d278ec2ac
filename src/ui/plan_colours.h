/// Colours, lines and marks of a plan, for light and dark palettes. Whatever a colour tells is also told by a shape or
/// a word.
#pragma once

#include <QColor>
#include <QPalette>
#include <QPen>
#include <array>

#include "ui/plan_model.h"

class QPainter;

namespace tovak::ui {

struct PlanColours {
  QColor paper;
  QColor ink;
  QColor beyond;  ///< the ground outside the area served
  QColor grid;
  QColor faint;  ///< names that should not stand out
  QColor chosen;
  QColor warning;
  QColor source;
  QColor target;
  std::array<QColor, kPlanStates> states;

  QColor of(PlanState state) const { return states[static_cast<std::size_t>(state)]; }
};
PlanColours planColours(const QPalette& palette);

/// The outline of an area: each kind has its own dash pattern.
QPen outlinePen(const PlanColours& colours, PlanAreaKind kind);

/// "converted", "doubtful", "refused", "other".
QString stateWord(PlanState state);

/// A disc, a square, a triangle or a cross.
void drawMark(QPainter& painter, const PlanColours& colours, PlanState state, QPointF middle, double radius);

}  // namespace tovak::ui
