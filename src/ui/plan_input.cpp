// How a plan responds to keys, wheel and mouse.
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleHints>
#include <QWheelEvent>
#include <cmath>
#include <utility>

#include "ui/plan_widget.h"

namespace tovak::ui {
namespace {

constexpr double kZoomStep = 1.5;
/// The part of the map's size that an arrow key moves.
constexpr double kMoveStep = 0.125;

}  // namespace

void PlanWidget::step(int direction) {
  const int count = static_cast<int>(model_.points.size());
  int index = selected_ < 0 && direction < 0 ? count : selected_;
  do {
    index += direction;
  } while (index >= 0 && index < count && !at(index)->hasPlace());
  if (index >= 0 && index < count) choose(index);
}

QPointF PlanWidget::zoomCentre() const {
  if (pointer_) return *pointer_;
  if (selected() != nullptr && layout_.map.contains(plan_.toPixel(selected()->place))) {
    return plan_.toPixel(selected()->place);
  }
  return layout_.map.center();
}

void PlanWidget::zoomIn() {
  zoom(zoomCentre(), kZoomStep);
}

void PlanWidget::zoomOut() {
  zoom(zoomCentre(), 1 / kZoomStep);
}

void PlanWidget::zoom(QPointF pixel, double factor) {
  plan_.zoom(pixel, factor);
  fit_ = Fit::none;
  refresh();
}

void PlanWidget::move(QPointF pixels) {
  plan_.move(pixels);
  fit_ = Fit::none;
  refresh();
}

void PlanWidget::wheelEvent(QWheelEvent* event) {
  const QPointF pixel = event->position();
  if (!layout_.map.contains(pixel)) return event->ignore();
  zoom(pixel, std::pow(kZoomStep, event->angleDelta().y() / 120.0));
  event->accept();
}

void PlanWidget::keyPressEvent(QKeyEvent* event) {
  const QSizeF step = layout_.map.size() * kMoveStep;
  switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return zoomIn();
    case Qt::Key_Minus:
      return zoomOut();
    case Qt::Key_Left:
      return move({step.width(), 0});
    case Qt::Key_Right:
      return move({-step.width(), 0});
    case Qt::Key_Up:
      return move({0, step.height()});
    case Qt::Key_Down:
      return move({0, -step.height()});
    case Qt::Key_Home:
      return fit(event->modifiers().testFlag(Qt::ShiftModifier) ? Fit::all : Fit::points);
    case Qt::Key_PageDown:
      return this->step(1);
    case Qt::Key_PageUp:
      return this->step(-1);
    default:
      QWidget::keyPressEvent(event);
  }
}

void PlanWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
  const QPointF pixel = event->position();
  const std::optional<PlanProjection> locator = locatorProjection(model_, layout_);
  if (locator && locator->view().contains(pixel)) {
    plan_.centre(locator->toPlace(pixel));
    fit_ = Fit::none;
    refresh();
  } else if (layout_.map.contains(pixel)) {
    pressed_ = pixel;
  }
}

void PlanWidget::mouseMoveEvent(QMouseEvent* event) {
  const QPointF pixel = event->position();
  const bool onMap = layout_.map.contains(pixel) && (!layout_.side.isEmpty() || !layout_.locator.contains(pixel));
  pointer_ = onMap ? std::optional(pixel) : std::nullopt;
  if (pressed_ && !dragging_) {
    const QPointF away = pixel - *pressed_;
    dragging_ = away.manhattanLength() >= QGuiApplication::styleHints()->startDragDistance();
    if (dragging_) setCursor(Qt::ClosedHandCursor);
  }
  if (dragging_) {
    move(pixel - std::exchange(*pressed_, pixel));
  } else {
    hovered_ = pointer_ ? nearestPoint(*pointer_) : -1;
    setCursor(hovered_ >= 0 ? Qt::PointingHandCursor : onMap ? Qt::CrossCursor : Qt::ArrowCursor);
    update();
  }
}

void PlanWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !pressed_) return QWidget::mouseReleaseEvent(event);
  pressed_.reset();
  if (!std::exchange(dragging_, false)) choose(nearestPoint(event->position()));
  unsetCursor();
}

void PlanWidget::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  pointer_.reset();
  hovered_ = -1;
  update();
}

}  // namespace tovak::ui
