/// The plan: points and areas in their places.
///
/// The wheel, "+" and "-" zoom about the pointer; dragging and the arrow keys move the map; Home shows all points, and
/// with Shift all areas too; Page Up and Page Down go from point to point, and a click selects the point under the
/// pointer. The line at the bottom shows where the pointer is, and its distance and direction from the selected point.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <array>
#include <optional>

#include "ui/plan_sheet.h"

class QToolButton;

namespace tovak::ui {

class PlanWidget : public QWidget {
  Q_OBJECT

 public:
  explicit PlanWidget(QWidget* parent = nullptr);

  /// Page Down goes through the points in this order. The view stays when the points span the same box as before;
  /// otherwise it shows all points and, when some lie outside a usual area, that area too. The selected row stays
  /// selected if it is still there.
  void setModel(PlanModel model);
  /// Feet and miles, or metres and kilometres.
  void setFeet(bool feet);

  const PlanModel& model() const { return model_; }
  const PlanHeading& heading() const { return heading_; }
  /// In the widget's logical pixels.
  const PlanProjection& projection() const { return plan_; }
  /// -1 when no point is selected.
  int selectedRow() const;
  /// The text of the line at the bottom; empty when it shows the legend.
  QString footText() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

  /// Selects the point of a row and brings it into view; a row without a place selects nothing. Emits no signal.
  void selectRow(int row);
  void fitPoints();
  /// All points and areas.
  void fitAll();

 signals:
  /// The person chose a point.
  void pointSelected(int row);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  enum class Fit { none, points, pointsAndArea, all };
  static constexpr int kButtons = 3;

  void addButton(int index, const char* sign, const char* name, const char* tip, void (PlanWidget::*action)());
  void zoomIn();
  void zoomOut();
  void zoom(QPointF pixel, double factor);
  void move(QPointF pixels);
  void fit(Fit fit);
  std::optional<PlanBox> boxOf(Fit fit) const;
  void arrange();
  void refresh();
  /// The pointer, or else the selected point if it is in view, or else the middle.
  QPointF zoomCentre() const;
  const PlanPoint* selected() const { return at(selected_); }
  const PlanPoint* at(int index) const;
  int nearestPoint(QPointF pixel) const;
  void select(int index);
  void choose(int index);
  void step(int direction);
  void paintPointer(QPainter& painter, const PlanSheet& sheet) const;
  PlanSheet sheet() const;
  void renderSheet();

  PlanModel model_;
  PlanHeading heading_;
  PlanProjection plan_;
  PlanLayout layout_;
  PlanColours colours_;
  QPixmap picture_;  ///< everything that does not follow the pointer; null when it has to be painted again
  std::array<QToolButton*, kButtons> buttons_ = {};
  std::optional<PlanBox> pointBox_;
  std::optional<QPointF> pointer_;  ///< while it is over the map
  std::optional<QPointF> pressed_;
  bool dragging_ = false;
  int hovered_ = -1;  ///< indices of points, like the next
  int selected_ = -1;
  Fit fit_ = Fit::pointsAndArea;
  bool feet_ = true;
};

}  // namespace tovak::ui
