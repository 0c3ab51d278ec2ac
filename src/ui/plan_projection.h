/// From degrees to the pixels of a plan and back, without any window.
///
/// A local equirectangular projection: north is up, a degree of latitude has the same length everywhere, and a degree
/// of longitude is shorter by the cosine of a single latitude, the middle of the box last fitted to the view.
#pragma once

#include <QPointF>
#include <QRectF>

#include "run/place.h"

namespace tovak::ui {

/// Limits in decimal degrees, west negative; the limits belong to the box.
struct PlanBox {
  double south = 0.0;
  double north = 0.0;
  double west = 0.0;
  double east = 0.0;

  bool holds(run::Place place) const {
    return place.latitude >= south && place.latitude <= north && place.longitude >= west && place.longitude <= east;
  }
  /// Grows until it contains the place.
  void include(run::Place place);
  bool operator==(const PlanBox&) const = default;
};

class PlanProjection {
 public:
  PlanProjection() = default;
  /// Shows the whole box in the middle of the view, at least `margin` pixels from its edges. A box without extent is
  /// shown with about two hundred metres around it.
  static PlanProjection fitted(const PlanBox& box, const QRectF& view, double margin);

  QPointF toPixel(run::Place place) const;
  run::Place toPlace(QPointF pixel) const;
  /// The rectangle of a box; its top is north.
  QRectF toPixels(const PlanBox& box) const;
  /// What the view shows.
  PlanBox shown() const;

  /// Enlarges by the factor, as far as that is useful; the place under the pixel stays there.
  void zoom(QPointF pixel, double factor);
  /// Moves the map by this many pixels.
  void move(QPointF pixels);
  void centre(run::Place place) { centre_ = place; }
  /// Another view with the same middle and scale.
  void setView(const QRectF& view) { view_ = view; }

  const QRectF& view() const { return view_; }
  /// The degrees of latitude and of longitude that one pixel covers.
  double latitudePerPixel() const { return 1.0 / pixelsPerDegree_; }
  double longitudePerPixel() const { return 1.0 / (pixelsPerDegree_ * shrink_); }
  /// Along the parallel in the middle of the box last fitted to the view.
  double metresPerPixel() const;

 private:
  QRectF view_;
  run::Place centre_;
  double pixelsPerDegree_ = 1.0;
  double shrink_ = 1.0;  ///< the cosine of the middle latitude
  double middleLatitude_ = 0.0;
};

}  // namespace tovak::ui
