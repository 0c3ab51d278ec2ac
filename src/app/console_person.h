/// The person of a batch run: messages go to standard error, or are kept for the window if the run turns to it;
/// questions are not asked.
#pragma once

#include <chrono>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "run/person.h"

namespace tovak::app {

/// Prints a text on a line of its own, with control characters made visible.
void printLine(std::ostream& out, std::string_view text);

/// Prints a message as "title: text".
void printMessage(std::ostream& out, const run::Message& message);

/// Prints what the window would have shown, and why it could not be opened.
void printUnopenedWindow(std::ostream& out, const std::vector<run::Message>& messages, const std::string& reason);

class ConsolePerson final : public run::Person, public run::Progress {
 public:
  /// `showProgress`: keep a line on the terminal that counts the records. `hasWindow`: a run that meets a problem can
  /// turn to the window.
  ConsolePerson(std::ostream& err, bool showProgress, bool hasWindow)
      : err_(err), showProgress_(showProgress), hasWindow_(hasWindow) {}
  ConsolePerson(const ConsolePerson&) = delete;
  ConsolePerson& operator=(const ConsolePerson&) = delete;
  ~ConsolePerson() override { endProgress(); }

  void show(const run::Message& message) override;
  bool confirm(const run::Message& question) override;
  bool leaveBatchMode() override;
  bool chooseTargetOptions(run::TargetOptions) override { return true; }
  bool progress(const run::Reached& reached) override;

  /// Clears the progress line on the terminal.
  void endProgress();

  /// Whether the run has left batch mode, and what it had to say since then.
  bool leftBatchMode() const { return leftBatchMode_; }
  const std::vector<run::Message>& messagesForWindow() const { return messagesForWindow_; }

 private:
  std::ostream& err_;
  const bool showProgress_;
  const bool hasWindow_;
  bool leftBatchMode_ = false;
  std::vector<run::Message> messagesForWindow_;
  bool progressShown_ = false;
  std::chrono::steady_clock::time_point lastProgress_;
};

}  // namespace tovak::app
