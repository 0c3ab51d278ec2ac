#include "run/point_sample.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tovak::run {

bool PointSample::Thinned::takesNext() {
  if ((passed++ & (step - 1)) != 0) return false;
  if (points.size() < most) return true;
  for (std::size_t kept = 0; 2 * kept < points.size(); ++kept) std::swap(points[kept], points[2 * kept]);
  points.resize((points.size() + 1) / 2);
  step *= 2;
  return ((passed - 1) & (step - 1)) == 0;
}

void PointSample::add(const PointRecord& point, const DoubtFlags& doubts, bool refused) {
  if (!point.refusal.empty()) return;
  Thinned& sample = refused || doubts.any() ? others_ : converted_;
  if (!sample.takesNext()) return;
  sample.points.push_back({.line = point.sourceLine,
                           .number = point.pointNumber,
                           .northing = point.InNorthLat,
                           .easting = point.InEastLon,
                           .fate = refused ? Fate::Refused : Fate::Converted,
                           .doubts = doubts});
}

std::vector<SampledPoint> PointSample::take(const Doubts& doubts) {
  std::vector<SampledPoint> points = std::move(converted_.points);
  std::ranges::move(others_.points, std::back_inserter(points));
  for (SampledPoint& point : points) {
    for (std::size_t kind = 0; kind < kDoubtKinds; ++kind) {
      const bool remains = point.doubts.has(static_cast<Doubt>(kind)) && doubts[kind].count != 0;
      if (remains && point.fate == Fate::Converted) point.fate = Fate::Doubtful;
    }
  }
  std::ranges::stable_sort(points, {}, &SampledPoint::line);
  return points;
}

}  // namespace tovak::run
