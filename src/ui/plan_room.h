/// Which parts of a plan are taken: no text is painted over another text or over a mark.
#pragma once

#include <QRectF>
#include <array>
#include <optional>
#include <span>
#include <vector>

namespace tovak::ui {

class PlanRoom {
 public:
  explicit PlanRoom(const QRectF& area);

  /// Whether the rectangle is wholly inside the area and free.
  bool isFree(const QRectF& rectangle) const;
  void take(const QRectF& rectangle);
  /// The first free rectangle, which is then taken.
  std::optional<QRectF> takeFirst(std::span<const QRectF> rectangles);

 private:
  struct Cells {
    int left, top, right, bottom;  ///< right and bottom are one past the rectangle
  };
  Cells cellsOf(const QRectF& rectangle) const;

  QRectF area_;
  int columns_;
  int rows_;
  std::vector<char> taken_;
};

/// Where a text of this size may be placed beside a mark of this radius, the best place first.
std::array<QRectF, 8> placesBeside(QPointF mark, double radius, QSizeF text);

}  // namespace tovak::ui
