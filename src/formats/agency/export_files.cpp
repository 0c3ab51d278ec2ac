#include "formats/agency/export_files.h"

#include "run/combination_rules.h"
#include "run/conversion_run.h"
#include "run/run_messages.h"

namespace tovak::formats {

using run::Icon;
using run::Message;
using text::LineReader;

bool ExportFiles::stop(const Message& message) {
  context_.message = message;
  return false;
}

bool ExportFiles::openSource(run::target::Index targetFormat, const char* wrongTarget) {
  if (context_.settings.targetFormat != targetFormat) return stop({wrongTarget, "Invalid target", Icon::Exclamation});
  if (const run::Message* const collision = run::fileCollision(context_.settings)) return stop(*collision);
  return source_.open(context_.settings.source.fileName) || stop(run::systemMessage(source_.error()));
}

bool ExportFiles::createTarget() {
  created_ = true;
  return target_.open(context_.settings.target.fileName);
}

bool ExportFiles::next(std::string_view& line) {
  if (!source_.next(line)) return false;
  if (source_.lineNumber() % run::kProgressStep == 0) context_.person.progress(source_.lineNumber());
  return true;
}

bool ExportFiles::commit() {
  return !created_ || target_.commit() || stop(run::systemMessage(target_.error()));
}

bool ExportFiles::stopKeepingLines(const Message& message) {
  return commit() && stop(message);
}

bool ExportFiles::finish(const char* finished) {
  switch (source_.fault()) {
    case LineReader::Fault::System:
      return stop(run::systemMessage(source_.error()));
    case LineReader::Fault::LineTooLong:
      return stopKeepingLines(run::systemMessage(source_.error()));
    case LineReader::Fault::None:
      break;
  }
  if (!commit()) return false;
  context_.message = {finished, "Finished", Icon::Information};
  return true;
}

bool ExportFiles::stopAtLine(const char* text, const char* title) {
  return stopKeepingLines({.text = text,
                           .title = title,
                           .icon = Icon::Exclamation,
                           .detail = run::messages::lineOfFile(source_.lineNumber(), source_.fileName())});
}

}  // namespace tovak::formats
