/// A person whose answers are written beforehand, and who notes what was shown.
#pragma once

#include <algorithm>
#include <deque>
#include <vector>

#include "run/person.h"

namespace tovak::tests {

class ScriptedPerson final : public run::Person, public run::TypedPoints, public run::Screen, public run::Progress {
 public:
  struct TypedPoint {
    std::string number;
    double northing;
    double easting;
  };

  std::vector<run::Message> shown;
  std::vector<run::Message> questions;
  std::vector<bool> freshGrids;  ///< one entry a row
  int gridsShown = 0;
  std::vector<std::uint64_t> printedFrom;
  std::vector<run::TargetOptions> optionsShown;
  std::vector<run::Reached> progressTold;
  double stopsAt = 2.0;  ///< the run is stopped when that part of its source has been read

  bool stopsInBox = false;  ///< the message about a point stops it
  run::PointSample* sample = nullptr;
  std::size_t keptLines = 0;

  bool answer = true;         ///< to every question
  bool acceptOptions = true;  ///< the options dialogs are not cancelled
  bool hasWindow = false;     ///< a batch run can turn interactive
  std::deque<TypedPoint> typed;

  // Room for a long run, whose allocations are counted.
  ScriptedPerson() { progressTold.reserve(64); }

  run::Audience audience() {
    return {.person = *this,
            .typedPoints = this,
            .screen = this,
            .progress = this,
            .sample = sample,
            .keptLines = keptLines};
  }

  void show(const run::Message& message) override { shown.push_back(message); }
  bool confirm(const run::Message& question) override {
    questions.push_back(question);
    return answer;
  }
  bool leaveBatchMode() override { return hasWindow; }
  bool chooseTargetOptions(run::TargetOptions options) override {
    optionsShown.push_back(options);
    return acceptOptions;
  }
  bool typePoint(run::PointRecord& point) override {
    if (typed.empty()) return false;
    point.pointNumber = typed.front().number;
    point.InNorthLat = typed.front().northing;
    point.InEastLon = typed.front().easting;
    typed.pop_front();
    return true;
  }
  void showRow(const run::PointRecord&, bool freshGrid) override { freshGrids.push_back(freshGrid); }
  void printReport(const run::ReportHeading&, std::uint64_t start) override { printedFrom.push_back(start); }
  void showGrid() override { ++gridsShown; }
  bool progress(const run::Reached& reached) override {
    progressTold.push_back(reached);
    if (stopsInBox && !shown.empty() && shown.back().mayStop) return false;
    return static_cast<double>(reached.bytes) < stopsAt * static_cast<double>(std::max<std::uint64_t>(reached.size, 1));
  }
};

}  // namespace tovak::tests
