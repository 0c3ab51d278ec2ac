// Command lines, both as one line and as arguments separated by null characters.
#include "app/command_line.h"

#include <filesystem>

#include "app/command_items.h"
#include "formats/format_tables.h"
#include "harness.h"

using namespace tovak;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  static const run::FormatTables formats = formats::formatTables();
  std::vector<std::string> arguments(1);
  for (const char c : bytes) {
    if (c != '\0') arguments.back() += c;
    if (c == '\0') arguments.emplace_back();
  }
  const std::string joined = app::joinArguments(arguments);
  for (const std::string& line : {std::string(bytes), joined}) {
    app::itemAskingForHelp(line);
    const app::CommandLine parsed = app::parseCommandLine(line, formats);
    const auto known = [](std::int16_t index, std::size_t count) {
      return index >= 0 && static_cast<std::size_t>(index) < count;
    };
    if (!parsed.MessageText.empty()) continue;
    fuzz::require(known(parsed.settings.sourceFormat, formats.sources.size()), "a source format of the list", line);
    fuzz::require(known(parsed.settings.targetFormat, formats.targets.size()), "a target format of the list", line);
    fuzz::require(std::filesystem::exists(parsed.settings.source.fileName), "a source that is there", line);
  }
  // A file name is parsed unchanged.
  const bool plain =
      !arguments.front().empty() && arguments.front().find_first_of("-\"\t\n\v\f\r ") == std::string::npos;
  if (plain && app::faultyArgument(arguments).empty()) {
    const app::CommandItems items = app::parseCommandItems(joined);
    const std::string& first = items.jobs.empty() ? items.source.fileName : items.jobs.front();
    fuzz::require(first == arguments.front(), "the first name is that of a job or the source", joined);
  }
  return 0;
}
