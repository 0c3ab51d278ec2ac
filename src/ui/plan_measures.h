/// What a plan measures and how it puts that into words: graticule steps, angles, distances, bearings, the scale bar.
#pragma once

#include <QString>
#include <numbers>

#include "ui/plan_projection.h"

namespace tovak::ui {

constexpr double radians(double degrees) {
  return degrees * std::numbers::pi / 180.0;
}

/// At a latitude of the GRS80 ellipsoid.
double metresPerDegreeOfLongitude(double latitude);

/// The smallest step in whole degrees, minutes, seconds or decimals of a second (1, 2, 5, 10, 20 or 30 of them) that is
/// not less than `least` degrees.
double graticuleStep(double least);

enum class PlanAxis { latitude, longitude };

/// An angle with the precision that a step needs: "46° N", "93°30′ W", "46°12′07.5″ N".
QString planAngle(double degrees, double step, PlanAxis axis);

/// From one place to another on the GRS80 ellipsoid. Accurate to two parts in a million within 80 km, and to one part
/// in 10,000 and a hundredth of a degree within 640 km.
struct PlanCourse {
  double metres = 0.0;
  double azimuth = 0.0;  ///< at the first place, degrees clockwise from geodetic north, 0 to 360
};
PlanCourse planCourse(run::Place from, run::Place to);

/// "812 m", "41.23 km"; or in US survey feet, "135,275 ft (25.6 mi)". Below a hundred metres it has as many decimals as
/// `metresPerPixel` justifies.
QString distanceText(double metres, double metresPerPixel, bool feet);

/// A rough distance and direction: "12.6 mi north", "97 km northwest".
QString wayText(const PlanCourse& course, bool feet);

/// The quadrant bearing: "N 45°12′ W".
QString bearingText(double azimuth);

struct ScaleBar {
  double metres = 0.0;
  QString label;
};
/// The longest bar whose length is 1, 2 or 5 times a power of ten in its unit, and not longer than `metres`.
ScaleBar scaleBar(double metres, bool feet);

}  // namespace tovak::ui
