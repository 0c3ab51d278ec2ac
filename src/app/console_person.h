/// The person of a batch run: messages go to standard error, nothing waits for an answer.
#pragma once

#include <chrono>
#include <cstdint>
#include <ostream>

#include "run/person.h"

namespace tovak::app {

/// Prints a message as "title: text".
void printMessage(std::ostream& out, const run::Message& message);

class ConsolePerson final : public run::Person {
 public:
  /// `showProgress`: keep a line on the terminal that counts the records.
  ConsolePerson(std::ostream& err, bool showProgress) : err_(err), showProgress_(showProgress) {}
  ConsolePerson(const ConsolePerson&) = delete;
  ConsolePerson& operator=(const ConsolePerson&) = delete;
  ~ConsolePerson() override;

  void show(const run::Message& message) override;
  bool confirm(const run::Message& question) override;
  bool leaveBatchMode() override { return false; }
  bool chooseTargetOptions(run::TargetOptions) override { return true; }
  bool typePoint(run::PointRecord&) override { return false; }
  void showRow(const run::PointRecord&, bool) override {}
  void showGrid() override {}
  void progress(std::uint64_t records) override;

 private:
  std::ostream& err_;
  const bool showProgress_;
  bool progressShown_ = false;
  std::chrono::steady_clock::time_point lastProgress_;
};

}  // namespace tovak::app
