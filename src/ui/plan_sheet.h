/// A plan as it is painted: the map and everything around it.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QRectF>

#include "ui/plan_colours.h"
#include "ui/plan_model.h"
#include "ui/plan_projection.h"
#include "ui/plan_room.h"

class QPainter;

namespace tovak::ui {

/// Where the parts of a plan go. A wide plan has the locator and the legend in a column beside the map; a narrow one
/// has the locator on the map, and the legend in the line at the bottom.
struct PlanLayout {
  QRectF heading;
  QRectF map;
  QRectF side;  ///< empty in a narrow plan
  QRectF locator;
  QRectF points;   ///< the part of the map that nothing else covers
  QRectF buttons;  ///< three squares, one above the other
  QRectF foot;     ///< the line at the bottom
};
PlanLayout planLayout(QSizeF size, const QFontMetricsF& metrics);

/// The projection of the small map of the area served, or of everything where there is no such area; nothing when there
/// is no room for it.
std::optional<PlanProjection> locatorProjection(const PlanModel& model, const PlanLayout& layout);

struct PlanSheet {
  const PlanModel& model;
  const PlanHeading& heading;
  const PlanProjection& plan;
  const PlanLayout& layout;
  const PlanColours& colours;
  QFont font;
  const PlanPoint* selected = nullptr;
  bool feet = true;
  double pixelRatio = 1.0;  ///< of the device

  QFontMetricsF metrics() const { return QFontMetricsF(font); }
  double markRadius() const;
  /// Whether there are so many points in view that their numbers would be of no use.
  bool crowded() const;
};

/// Everything but the line at the bottom and what follows the pointer.
void paintSheet(QPainter& painter, const PlanSheet& sheet);

/// The states that occur, with their marks and counts, and how many points are out of view.
void paintLegendLine(QPainter& painter, const PlanSheet& sheet, const QRectF& line);

// The parts, each in a file of its own.

/// Ground, outlines, graticule, points, and those names and numbers that there is room for.
void paintMap(QPainter& painter, const PlanSheet& sheet, PlanRoom& room);
/// Scale bar and north arrow on the map.
void paintScale(QPainter& painter, const PlanSheet& sheet, PlanRoom& room);
void paintLocator(QPainter& painter, const PlanSheet& sheet);
/// One mark for each pixel and state, the more important on top. Marks are small when many are in view.
void paintPoints(QPainter& painter, const PlanSheet& sheet, PlanRoom& room);
/// The selected point's number, and those of the others unless there are many in view.
void paintNumbers(QPainter& painter, const PlanSheet& sheet, PlanRoom& room);

}  // namespace tovak::ui
