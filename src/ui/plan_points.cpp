// The points of a plan and their numbers.
#include <QPainter>
#include <QPixmap>
#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/plan_sheet.h"

namespace tovak::ui {
namespace {

/// With more points in view than this, marks are small.
constexpr int kCrowd = 1500;
/// The radius of the ring around the selected point, in radii of its mark.
constexpr double kRing = 2.2;

/// Which pixels have a mark already.
class Pixels {
 public:
  explicit Pixels(const QRectF& area)
      : origin_(area.topLeft()),
        width_(static_cast<int>(area.width()) + 1),
        height_(static_cast<int>(area.height()) + 1) {
    taken_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
  }

  /// Whether the pixel is in the area and had no mark until now.
  bool take(QPointF pixel) {
    const double x = std::floor(pixel.x() - origin_.x());
    const double y = std::floor(pixel.y() - origin_.y());
    if (!(x >= 0 && y >= 0 && x < width_ && y < height_)) return false;
    char& taken = taken_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x)];
    return std::exchange(taken, char(1)) == 0;
  }
  void clear() { std::ranges::fill(taken_, char(0)); }

 private:
  QPointF origin_;
  int width_;
  int height_;
  std::vector<char> taken_;
};

/// A mark painted once, to be copied.
QPixmap markPicture(const PlanSheet& sheet, PlanState state, double radius) {
  const double side = std::ceil(radius * 1.5 + 1) * 2;
  QPixmap picture((QSizeF(side, side) * sheet.pixelRatio).toSize());
  picture.setDevicePixelRatio(sheet.pixelRatio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  drawMark(painter, sheet.colours, state, QPointF(side / 2, side / 2), radius);
  return picture;
}

void paintChosen(QPainter& painter, const PlanSheet& sheet) {
  if (sheet.selected == nullptr) return;
  const double radius = sheet.markRadius();
  const QPointF pixel = sheet.plan.toPixel(sheet.selected->place);
  drawMark(painter, sheet.colours, sheet.selected->state, pixel, radius);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(sheet.colours.paper, 5));
  painter.drawEllipse(pixel, radius * kRing, radius * kRing);
  painter.setPen(QPen(sheet.colours.chosen, 2.5));
  painter.drawEllipse(pixel, radius * kRing, radius * kRing);
}

}  // namespace

double PlanSheet::markRadius() const {
  return std::max(metrics().height() * 0.22, 3.0);
}

bool PlanSheet::crowded() const {
  const PlanBox shown = plan.shown();
  return std::ranges::count_if(model.points, [&](const PlanPoint& point) { return shown.holds(point.place); }) > kCrowd;
}

void paintPoints(QPainter& painter, const PlanSheet& sheet, PlanRoom& room) {
  const double radius = sheet.crowded() ? 1.6 : sheet.markRadius();
  const QPointF half(radius, radius);
  Pixels pixels(sheet.layout.map);
  for (int state = 0; state < kPlanStates; ++state) {
    pixels.clear();
    // A refused or doubtful point must not get lost in a crowd of converted ones.
    const bool converted = static_cast<PlanState>(state) == PlanState::converted;
    const QPixmap picture =
        markPicture(sheet, static_cast<PlanState>(state), converted ? radius : std::max(radius, sheet.markRadius()));
    const QPointF corner(picture.deviceIndependentSize().width() / 2, picture.deviceIndependentSize().height() / 2);
    for (const PlanPoint& point : sheet.model.points) {
      if (static_cast<int>(point.state) != state || !point.hasPlace()) continue;
      const QPointF pixel = sheet.plan.toPixel(point.place);
      if (!pixels.take(pixel)) continue;
      painter.drawPixmap(pixel - corner, picture);
      room.take(QRectF(pixel - half, pixel + half));
    }
  }
  paintChosen(painter, sheet);
}

void paintNumbers(QPainter& painter, const PlanSheet& sheet, PlanRoom& room) {
  painter.setPen(sheet.colours.ink);
  const auto paint = [&](const PlanPoint& point, double radius) {
    const QPointF pixel = sheet.plan.toPixel(point.place);
    if (point.label.isEmpty() || !sheet.layout.map.contains(pixel)) return;
    const QFontMetricsF metrics(painter.font());
    const QSizeF size(metrics.horizontalAdvance(point.label), metrics.ascent());
    const std::optional<QRectF> place = room.takeFirst(placesBeside(pixel, radius, size));
    if (place) painter.drawText(place->bottomLeft() - QPointF(0, metrics.descent() * 0.4), point.label);
  };
  if (sheet.selected != nullptr) {
    QFont bold = sheet.font;
    bold.setBold(true);
    painter.setFont(bold);
    paint(*sheet.selected, sheet.markRadius() * kRing);
    painter.setFont(sheet.font);
  }
  if (sheet.crowded()) return;
  for (const PlanPoint& point : sheet.model.points) {
    if (point.hasPlace() && &point != sheet.selected) paint(point, sheet.markRadius());
  }
}

}  // namespace tovak::ui
