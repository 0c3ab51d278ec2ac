#include "app/console_person.h"

#include <string>

#include "text/characters.h"
#include "text/number.h"

namespace tovak::app {
namespace {

constexpr std::chrono::milliseconds kProgressInterval(100);
constexpr const char* kClearLine = "\r\033[K";

}  // namespace

void printLine(std::ostream& out, std::string_view text) {
  out << text::withVisibleControls(text) << std::endl;
}

void printMessage(std::ostream& out, const run::Message& message) {
  printLine(out, message.title + ": " + message.text);
}

void printUnopenedWindow(std::ostream& out, const std::vector<run::Message>& messages, const std::string& reason) {
  for (const run::Message& message : messages) printMessage(out, message);
  printMessage(out, {.text = "The main window could not be opened; use -B or -Q to convert without it.\n" + reason,
                     .title = "Missing Component"});
}

void ConsolePerson::endProgress() {
  if (progressShown_) err_ << kClearLine << std::flush;
  progressShown_ = false;
}

void ConsolePerson::show(const run::Message& message) {
  if (leftBatchMode_) {
    messagesForWindow_.push_back(message);
  } else {
    printMessage(err_, message);
  }
}

bool ConsolePerson::leaveBatchMode() {
  leftBatchMode_ = hasWindow_;
  return leftBatchMode_;
}

bool ConsolePerson::confirm(const run::Message& question) {
  printMessage(err_, question);
  return false;
}

bool ConsolePerson::progress(const run::Reached& reached) {
  if (!showProgress_ || reached.records == 0) return true;
  const auto now = std::chrono::steady_clock::now();
  if (progressShown_ && now - lastProgress_ < kProgressInterval) return true;
  lastProgress_ = now;
  progressShown_ = true;
  std::string line = kClearLine;
  text::appendWhole(line, static_cast<std::int64_t>(reached.records));
  err_ << line << " records" << std::flush;
  return true;
}

}  // namespace tovak::app
