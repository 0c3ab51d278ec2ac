#include "ui/plan_room.h"

#include <algorithm>
#include <cmath>

namespace tovak::ui {
namespace {

/// The side of a cell in pixels: fine enough for marks, coarse enough for fifty thousand of them.
constexpr double kCell = 2.0;

int cellsAcross(double pixels) {
  return std::max(static_cast<int>(std::ceil(pixels / kCell)), 0);
}

}  // namespace

PlanRoom::PlanRoom(const QRectF& area)
    : area_(area),
      columns_(cellsAcross(area.width())),
      rows_(cellsAcross(area.height())),
      taken_(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_)) {}

PlanRoom::Cells PlanRoom::cellsOf(const QRectF& rectangle) const {
  const QRectF inside = rectangle.intersected(area_).translated(-area_.topLeft());
  if (inside.isEmpty()) return {0, 0, 0, 0};
  return {static_cast<int>(inside.left() / kCell), static_cast<int>(inside.top() / kCell),
          std::min(cellsAcross(inside.right()), columns_), std::min(cellsAcross(inside.bottom()), rows_)};
}

bool PlanRoom::isFree(const QRectF& rectangle) const {
  if (!area_.contains(rectangle)) return false;
  const Cells cells = cellsOf(rectangle);
  for (int row = cells.top; row < cells.bottom; ++row) {
    const auto first = taken_.begin() + static_cast<std::ptrdiff_t>(row) * columns_;
    if (std::find(first + cells.left, first + cells.right, 1) != first + cells.right) return false;
  }
  return true;
}

void PlanRoom::take(const QRectF& rectangle) {
  const Cells cells = cellsOf(rectangle);
  for (int row = cells.top; row < cells.bottom; ++row) {
    const auto first = taken_.begin() + static_cast<std::ptrdiff_t>(row) * columns_;
    std::fill(first + cells.left, first + cells.right, 1);
  }
}

std::optional<QRectF> PlanRoom::takeFirst(std::span<const QRectF> rectangles) {
  const auto found = std::ranges::find_if(rectangles, [this](const QRectF& place) { return isFree(place); });
  if (found == rectangles.end()) return std::nullopt;
  take(*found);
  return *found;
}

std::array<QRectF, 8> placesBeside(QPointF mark, double radius, QSizeF text) {
  const double away = radius + 2 * kCell;
  const double right = mark.x() + away;
  const double left = mark.x() - away - text.width();
  const double above = mark.y() - away - text.height();
  const double below = mark.y() + away;
  const double across = mark.x() - text.width() / 2;
  const double beside = mark.y() - text.height() / 2;
  const auto at = [&text](double x, double y) { return QRectF(QPointF(x, y), text); };
  return {at(right, beside), at(left, beside), at(across, above), at(across, below),
          at(right, above),  at(right, below), at(left, above),   at(left, below)};
}

}  // namespace tovak::ui
