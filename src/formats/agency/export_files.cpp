#include "formats/agency/export_files.h"

#include <filesystem>
#include <system_error>

#include "run/combination_rules.h"
#include "run/run_messages.h"
#include "text/native_path.h"

namespace tovak::formats::agency {

using run::Icon;
using run::Message;
using text::LineReader;

bool ExportFiles::stop(const Message& message) {
  context_.message = message;
  return false;
}

bool ExportFiles::openSource(const char* wrongTarget) {
  if (!context_.targetIsPartner) return stop({wrongTarget, "Invalid target", Icon::Exclamation});
  if (const run::Message* const collision = run::fileCollision(context_.settings)) return stop(*collision);
  source_.watch(context_.watch);
  return source_.open(context_.settings.source.fileName) || stop(run::systemMessage(source_.error()));
}

bool ExportFiles::createTarget() {
  created_ = true;
  return target_.open(context_.settings.target.fileName);
}

bool ExportFiles::next(std::string_view& line) {
  return source_.next(line);
}

bool ExportFiles::keepsOlder() const {
  if (context_.counts.converted != 0) return false;
  std::error_code unknown;
  return created_ ? target_.target().hasOlder()
                  : std::filesystem::is_regular_file(text::pathOf(context_.settings.target.fileName), unknown);
}

void ExportFiles::settleTarget(bool written) {
  using enum run::TargetState;
  std::error_code unknown;
  const bool older = std::filesystem::is_regular_file(text::pathOf(context_.settings.target.fileName), unknown);
  context_.target = written ? Written : target_.target().isDirect() ? Incomplete : older ? OlderKept : NoFile;
}

bool ExportFiles::commit() {
  settleTarget(false);
  if (keepsOlder() || !created_) return true;
  settleTarget(target_.commit());
  return context_.target == run::TargetState::Written || stop(run::systemMessage(target_.error()));
}

bool ExportFiles::stopKeepingLines(Message message) {
  if (keepsOlder()) {
    if (!message.detail.empty()) message.detail += '\n';
    message.detail += olderStands();
  }
  return commit() && stop(message);
}

std::string ExportFiles::olderStands() const {
  return run::messages::targetStands(run::TargetState::OlderKept, context_.counts, context_.settings.target.fileName);
}

bool ExportFiles::finish(const char* finished) {
  if (source_.sourceChanged()) addTo(tallyOf(context_.counts.doubts, run::Doubt::SourceChanged), 0);
  switch (source_.fault()) {
    case LineReader::Fault::Stopped:
    case LineReader::Fault::System:
      settleTarget(false);
      return stop(run::systemMessage(source_.error()));
    case LineReader::Fault::LineTooLong:
      return stopKeepingLines(run::systemMessage(source_.error()));
    case LineReader::Fault::None:
      break;
  }
  if (!commit()) return false;
  context_.message = {finished, "Finished", Icon::Information};
  if (keepsOlder()) context_.message = run::messages::nothingWritten(olderStands());
  return true;
}

bool ExportFiles::stopAtLine(const char* text, const char* title) {
  return stopKeepingLines({.text = text,
                           .title = title,
                           .icon = Icon::Exclamation,
                           .detail = run::messages::lineOfFile(source_.lineNumber(), source_.fileName())});
}

}  // namespace tovak::formats::agency
