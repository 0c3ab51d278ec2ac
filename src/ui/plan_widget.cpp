#include "ui/plan_widget.h"

#include <QEvent>
#include <QPainter>
#include <QToolButton>
#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/plan_measures.h"

namespace tovak::ui {
namespace {

constexpr const char* kKeys =
    "+ \u2212: zoom.  Arrows: move.  Home: all points.  Shift+Home: all areas.  Page Down, Page Up: next point.";

}  // namespace

PlanWidget::PlanWidget(QWidget* parent) : QWidget(parent) {
  setObjectName("plan");
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAccessibleName("Plan");
  setAccessibleDescription(kKeys);
  setWhatsThis(kKeys);
  addButton(0, "+", "Zoom in", "Zoom in (+)", &PlanWidget::zoomIn);
  addButton(1, "\u2212", "Zoom out", "Zoom out (\u2212)", &PlanWidget::zoomOut);
  addButton(2, "\u2302", "Show all points", "Show all points (Home; with Shift all areas)", &PlanWidget::fitPoints);
  arrange();
}

void PlanWidget::addButton(int index, const char* sign, const char* name, const char* tip,
                           void (PlanWidget::*action)()) {
  auto* const button = new QToolButton(this);
  button->setText(sign);
  button->setAccessibleName(name);
  button->setToolTip(tip);
  button->setFocusPolicy(Qt::TabFocus);
  button->setCursor(Qt::ArrowCursor);
  connect(button, &QToolButton::clicked, this, action);
  buttons_[static_cast<std::size_t>(index)] = button;
}

void PlanWidget::setModel(PlanModel model) {
  const int row = selectedRow();
  model_ = std::move(model);
  heading_ = planHeading(model_, feet_);
  setAccessibleName("Plan: " + heading_.verdict + ". " + heading_.places);
  hovered_ = -1;
  const std::optional<PlanBox> box = tovak::ui::pointBox(model_.points);
  const bool sameBox = box == std::exchange(pointBox_, box);
  const auto found = std::ranges::find(model_.points, row, &PlanPoint::row);
  select(row < 0 || found == model_.points.end() ? -1 : static_cast<int>(found - model_.points.begin()));
  fit(sameBox ? fit_ : Fit::pointsAndArea);
}

void PlanWidget::setFeet(bool feet) {
  feet_ = feet;
  heading_ = planHeading(model_, feet);
  refresh();
}

const PlanPoint* PlanWidget::at(int index) const {
  return index < 0 ? nullptr : &model_.points[static_cast<std::size_t>(index)];
}

int PlanWidget::selectedRow() const {
  return selected() == nullptr ? -1 : selected()->row;
}

void PlanWidget::selectRow(int row) {
  const auto found = std::ranges::find(model_.points, row, &PlanPoint::row);
  select(row < 0 || found == model_.points.end() ? -1 : static_cast<int>(found - model_.points.begin()));
}

/// Selecting a point without a place selects nothing.
void PlanWidget::select(int index) {
  selected_ = at(index) != nullptr && at(index)->hasPlace() ? index : -1;
  if (selected() != nullptr) {
    const double edge = layout_.map.height() * 0.05;
    if (!layout_.map.adjusted(edge, edge, -edge, -edge).contains(plan_.toPixel(selected()->place))) {
      plan_.centre(selected()->place);
      fit_ = Fit::none;
    }
    setAccessibleDescription("Point " + selected()->label + ", " + stateWord(selected()->state) + ". " + kKeys);
  } else {
    setAccessibleDescription(kKeys);
  }
  refresh();
}

void PlanWidget::choose(int index) {
  if (index < 0) return;
  select(index);
  if (selected() != nullptr) emit pointSelected(selectedRow());
}

void PlanWidget::fitPoints() {
  fit(Fit::points);
}

void PlanWidget::fitAll() {
  fit(Fit::all);
}

std::optional<PlanBox> PlanWidget::boxOf(Fit fit) const {
  if (fit == Fit::all || !pointBox_) return wholeBox(model_);
  PlanBox box = *pointBox_;
  if (fit == Fit::pointsAndArea && heading_.left) {
    box.include({heading_.left->south, heading_.left->west});
    box.include({heading_.left->north, heading_.left->east});
  }
  return box;
}

void PlanWidget::fit(Fit fit) {
  fit_ = fit;
  const std::optional<PlanBox> box = boxOf(fit);
  if (fit != Fit::none && box) {
    plan_ = PlanProjection::fitted(*box, layout_.points, 0);
    plan_.setView(layout_.map);
    plan_.move(layout_.points.center() - layout_.map.center());
  }
  refresh();
}

void PlanWidget::arrange() {
  colours_ = planColours(palette());
  layout_ = planLayout(size(), QFontMetricsF(font()));
  plan_.setView(layout_.map);
  const double high = layout_.buttons.height() / kButtons;
  for (int index = 0; index < kButtons; ++index) {
    const QPointF corner = layout_.buttons.topLeft() + QPointF(0, index * high);
    buttons_[static_cast<std::size_t>(index)]->setGeometry(QRectF(corner, QSizeF(high, high)).toRect());
  }
  fit(fit_);
}

void PlanWidget::refresh() {
  picture_ = QPixmap();
  hovered_ = pointer_ ? nearestPoint(*pointer_) : -1;
  update();
}

/// -1 when there is no mark near the pixel.
int PlanWidget::nearestPoint(QPointF pixel) const {
  double nearest = sheet().markRadius() * 2.5;
  int found = -1;
  for (std::size_t index = 0; index < model_.points.size(); ++index) {
    if (!model_.points[index].hasPlace()) continue;
    const QPointF away = plan_.toPixel(model_.points[index].place) - pixel;
    const double distance = std::hypot(away.x(), away.y());
    if (distance >= nearest) continue;
    nearest = distance;
    found = static_cast<int>(index);
  }
  return found;
}

QSize PlanWidget::sizeHint() const {
  const int line = fontMetrics().height();
  return {line * 44, line * 26};
}

QSize PlanWidget::minimumSizeHint() const {
  const int line = fontMetrics().height();
  return {line * 14, line * 10};
}

bool PlanWidget::event(QEvent* event) {
  const bool handled = QWidget::event(event);
  const QEvent::Type type = event->type();
  if (type == QEvent::PaletteChange || type == QEvent::FontChange || type == QEvent::StyleChange) arrange();
  return handled;
}

void PlanWidget::resizeEvent(QResizeEvent* /*event*/) {
  arrange();
}

QString PlanWidget::footText() const {
  const PlanPoint* const point = hovered_ >= 0 ? at(hovered_) : pointer_ ? nullptr : selected();
  if (point == nullptr && !pointer_) return layout_.side.isEmpty() ? QString() : QString(kKeys);
  const run::Place place = point != nullptr ? point->place : plan_.toPlace(*pointer_);
  const double step = std::min(plan_.latitudePerPixel(), 1.0 / 3600.0);
  QString text = planAngle(place.latitude, step, PlanAxis::latitude) + "  " +
                 planAngle(place.longitude, step, PlanAxis::longitude);
  if (point != nullptr) text.prepend(point->label + "  ");
  if (selected() != nullptr && point != selected()) {
    const PlanCourse course = planCourse(selected()->place, place);
    text += "  from " + selected()->label + ": " + distanceText(course.metres, plan_.metresPerPixel(), feet_) + ", " +
            bearingText(course.azimuth);
  }
  return text;
}

PlanSheet PlanWidget::sheet() const {
  return {.model = model_,
          .heading = heading_,
          .plan = plan_,
          .layout = layout_,
          .colours = colours_,
          .font = font(),
          .selected = selected(),
          .feet = feet_,
          .pixelRatio = devicePixelRatioF()};
}

void PlanWidget::renderSheet() {
  picture_ = QPixmap((QSizeF(size()) * devicePixelRatioF()).toSize());
  picture_.setDevicePixelRatio(devicePixelRatioF());
  picture_.fill(palette().color(QPalette::Window));
  QPainter painter(&picture_);
  painter.setFont(font());
  paintSheet(painter, sheet());
}

/// The measurement, and the name of the point under the pointer.
void PlanWidget::paintPointer(QPainter& painter, const PlanSheet& sheet) const {
  if (!pointer_) return;
  painter.setClipRect(layout_.map);
  const PlanPoint* const point = at(hovered_);
  const QPointF end = point != nullptr ? plan_.toPixel(point->place) : *pointer_;
  if (selected() != nullptr && point != selected() && !dragging_) {
    painter.setPen(QPen(colours_.chosen, 1, Qt::DashLine));
    painter.drawLine(plan_.toPixel(selected()->place), end);
  }
  if (point == nullptr) return;
  const QString name = point->label + " (" + stateWord(point->state) + ")";
  const QSizeF size(sheet.metrics().horizontalAdvance(name) + 10, sheet.metrics().height() + 4);
  QRectF box(end + QPointF(sheet.markRadius() * 2, -sheet.markRadius() * 2 - size.height()), size);
  box.moveRight(std::min(box.right(), layout_.map.right() - 2));
  box.moveTop(std::max(box.top(), layout_.map.top() + 2));
  painter.setPen(palette().color(QPalette::ToolTipText));
  painter.setBrush(palette().color(QPalette::ToolTipBase));
  painter.drawRect(box);
  painter.drawText(box, Qt::AlignCenter, name);
}

void PlanWidget::paintEvent(QPaintEvent* /*event*/) {
  if (picture_.isNull() || picture_.devicePixelRatio() != devicePixelRatioF()) renderSheet();
  const PlanSheet sheet = this->sheet();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.drawPixmap(0, 0, picture_);
  const QString foot = footText();
  if (foot.isEmpty()) {
    paintLegendLine(painter, sheet, layout_.foot);
  } else {
    painter.setPen(palette().color(QPalette::WindowText));
    const bool oneLine = layout_.foot.height() < sheet.metrics().height() * 1.5;
    painter.drawText(layout_.foot, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                     oneLine ? sheet.metrics().elidedText(foot, Qt::ElideRight, layout_.foot.width()) : foot);
  }
  if (hasFocus()) {
    painter.setPen(QPen(colours_.chosen, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(layout_.map);
  }
  paintPointer(painter, sheet);
}

}  // namespace tovak::ui
