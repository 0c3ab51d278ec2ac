/// The two files of an agency export, from the check of the choices to the message at the end.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "run/formats.h"
#include "text/line_reader.h"
#include "text/line_writer.h"

namespace tovak::formats::agency {

class ExportFiles {
 public:
  explicit ExportFiles(const run::ExportContext& context) : context_(context) {}

  /// Opens the source when the target format is the export's own and the files differ. False: the context's message
  /// says why.
  bool openSource(const char* wrongTarget);
  /// Opens the target. False: only `finish` can follow, which says why. The same holds for `writeLine`.
  bool createTarget();

  /// The next line of the source; false at its end and on a fault, which `finish` checks.
  bool next(std::string_view& line);
  std::uint64_t lineNumber() const { return source_.lineNumber(); }
  bool writeLine(std::string_view line) { return target_.writeLine(line); }

  /// Gives the target its name, if it was created, and says so with `finished`. An older target stays, with a message
  /// of its own, when no record was converted. False when a file failed: the lines so far are kept when a line was too
  /// long, and nothing when the system failed.
  bool finish(const char* finished);
  /// Ends the export at the line read last with a message that names the line; the lines so far are kept. False.
  bool stopAtLine(const char* text, const char* title);

 private:
  bool stop(const run::Message& message);
  bool stopKeepingLines(run::Message message);
  bool keepsOlder() const;
  std::string olderStands() const;
  void settleTarget(bool written);
  bool commit();

  const run::ExportContext& context_;
  text::LineReader source_;
  text::LineWriter target_;
  bool created_ = false;
};

}  // namespace tovak::formats::agency
