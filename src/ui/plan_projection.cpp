#include "ui/plan_projection.h"

#include <algorithm>
#include <cmath>

#include "ui/plan_measures.h"

namespace tovak::ui {
namespace {

/// A point without neighbours is shown with this much around it.
constexpr double kLeastExtent = 0.002;
/// At the poles a degree of longitude has no length.
constexpr double kHighestLatitude = 89.0;
/// From the whole earth to one centimetre a pixel.
constexpr double kFewestPixels = 1.0;
constexpr double kMostPixels = 1.2e7;

}  // namespace

void PlanBox::include(run::Place place) {
  south = std::min(south, place.latitude);
  north = std::max(north, place.latitude);
  west = std::min(west, place.longitude);
  east = std::max(east, place.longitude);
}

PlanProjection PlanProjection::fitted(const PlanBox& box, const QRectF& view, double margin) {
  PlanProjection plan;
  plan.view_ = view;
  plan.centre_ = {(box.south + box.north) / 2, (box.west + box.east) / 2};
  plan.middleLatitude_ = std::clamp(plan.centre_.latitude, -kHighestLatitude, kHighestLatitude);
  plan.shrink_ = std::cos(radians(plan.middleLatitude_));
  const double high = std::max(box.north - box.south, kLeastExtent);
  const double wide = std::max((box.east - box.west) * plan.shrink_, kLeastExtent);
  const double scale =
      std::min(std::max(view.height() - 2 * margin, 1.0) / high, std::max(view.width() - 2 * margin, 1.0) / wide);
  plan.pixelsPerDegree_ = std::clamp(scale, kFewestPixels, kMostPixels);
  return plan;
}

QPointF PlanProjection::toPixel(run::Place place) const {
  return view_.center() + QPointF((place.longitude - centre_.longitude) * shrink_ * pixelsPerDegree_,
                                  (centre_.latitude - place.latitude) * pixelsPerDegree_);
}

run::Place PlanProjection::toPlace(QPointF pixel) const {
  const QPointF offset = pixel - view_.center();
  return {centre_.latitude - offset.y() * latitudePerPixel(), centre_.longitude + offset.x() * longitudePerPixel()};
}

QRectF PlanProjection::toPixels(const PlanBox& box) const {
  return {toPixel({box.north, box.west}), toPixel({box.south, box.east})};
}

PlanBox PlanProjection::shown() const {
  const run::Place northWest = toPlace(view_.topLeft());
  const run::Place southEast = toPlace(view_.bottomRight());
  return {southEast.latitude, northWest.latitude, northWest.longitude, southEast.longitude};
}

void PlanProjection::zoom(QPointF pixel, double factor) {
  const run::Place kept = toPlace(pixel);
  pixelsPerDegree_ = std::clamp(pixelsPerDegree_ * factor, kFewestPixels, kMostPixels);
  move(pixel - toPixel(kept));
}

void PlanProjection::move(QPointF pixels) {
  centre_.latitude = std::clamp(centre_.latitude + pixels.y() * latitudePerPixel(), -90.0, 90.0);
  centre_.longitude = std::clamp(centre_.longitude - pixels.x() * longitudePerPixel(), -180.0, 180.0);
}

double PlanProjection::metresPerPixel() const {
  return metresPerDegreeOfLongitude(middleLatitude_) * longitudePerPixel();
}

}  // namespace tovak::ui
