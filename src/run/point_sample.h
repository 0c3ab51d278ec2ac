/// Points of a run for a plan: all of them, or evenly spread ones where there are too many.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "run/doubts.h"
#include "run/fate.h"
#include "run/point_record.h"

namespace tovak::run {

struct SampledPoint {
  std::uint64_t line = 0;  ///< of the source, where the record begins
  std::string number;
  double northing = 0.0;  ///< in the source's unit, or latitude in decimal degrees
  double easting = 0.0;
  Fate fate = Fate::Converted;
  DoubtFlags doubts = {};
};

class PointSample {
 public:
  /// How many converted points are kept, and how many of the refused and doubtful ones.
  explicit PointSample(std::size_t most = 50000) : converted_{.most = most}, others_{.most = most} {}

  /// A refused point without coordinates is left out.
  void add(const PointRecord& point, const DoubtFlags& doubts, bool refused);

  /// Once the run is over: the points in the order of their lines, doubtful ones by the doubts that remained.
  std::vector<SampledPoint> take(const Doubts& doubts);

  /// Of how many points this is the sample.
  std::size_t all() const { return converted_.passed + others_.passed; }

 private:
  /// Keeps every `step`-th point. When it is full, every second one goes and the step doubles.
  struct Thinned {
    std::size_t most;
    std::size_t step = 1;  ///< a power of two
    std::size_t passed = 0;
    std::vector<SampledPoint> points = {};

    bool takesNext();
  };

  Thinned converted_;
  Thinned others_;
};

}  // namespace tovak::run
