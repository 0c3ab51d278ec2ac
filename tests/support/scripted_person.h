/// A person whose answers are written beforehand, and who notes what was shown.
#pragma once

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
  std::vector<std::uint64_t> progressTold;

  bool answer = true;         ///< to every question
  bool acceptOptions = true;  ///< the options dialogs are not cancelled
  bool hasWindow = false;     ///< a batch run can turn interactive
  std::deque<TypedPoint> typed;

  // Room for a long run, whose allocations are counted.
  ScriptedPerson() { progressTold.reserve(64); }

  run::Audience audience() { return {.person = *this, .typedPoints = this, .screen = this, .progress = this}; }

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
  void progress(std::uint64_t records) override { progressTold.push_back(records); }
};

}  // namespace tovak::tests
