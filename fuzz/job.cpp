// Job files: any bytes are read or refused with their line, and what is read is written and read again alike.
#include "app/command_text.h"
#include "formats/format_tables.h"
#include "harness.h"
#include "selection/job_file.h"

using namespace tovak;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  static const run::FormatTables formats = formats::formatTables();
  const std::string name = fuzz::folder().write("in.tovak", bytes), copy = fuzz::folder().file("copy.tovak");
  const text::Result<selection::Job> job = selection::readJob(name, formats);
  fuzz::require(job.value.has_value() == job.error.empty(), "a job or a reason");
  if (!job) {
    fuzz::require(job.error.starts_with(name + ": "), "the reason names the file", job.error);
    return 0;
  }
  std::string error;
  fuzz::require(selection::writeJob(copy, *job, formats, error), "what is read is written", error);
  const text::Result<selection::Job> again = selection::readJob(copy, formats);
  fuzz::require(again.value.has_value(), "and read again", again.error);
  fuzz::require(*selection::jobText(*again, name, formats) == *selection::jobText(*job, name, formats),
                "and is the same");
  fuzz::require(again->settings.source.fileName == job->settings.source.fileName &&
                    again->settings.sourceDelimited.headerLine == job->settings.sourceDelimited.headerLine,
                "down to its names");
  app::commandText(job->settings, formats);
  return 0;
}
