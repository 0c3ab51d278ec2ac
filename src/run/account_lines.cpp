#include "run/account_lines.h"

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <utility>

#include "run/run_messages.h"
#include "text/native_path.h"
#include "text/number.h"

namespace tovak::run {
namespace {

void appendCount(std::string& line, std::uint64_t count, std::string_view what) {
  text::appendWhole(line, static_cast<std::int64_t>(count));
  line += what;
}

/// Appends the place of the first of several records.
void appendPlace(std::string& list, std::uint64_t line, const std::string& file) {
  list += "first in line ";
  appendCount(list, line, "");
  if (!file.empty()) list += " of " + text::pathOf(file).filename().string();
}

/// Appends one item of a list in brackets.
void appendItem(std::string& list, const Tally& tally, std::string_view what, bool tellLine) {
  if (tally.count == 0) return;
  if (!list.empty()) list += "; ";
  appendCount(list, tally.count, what);
  if (tellLine) appendPlace(list += ", ", tally.firstLine, tally.firstFile);
}

std::string skippedList(const RecordCounts& counts) {
  std::string list;
  appendItem(list, counts.refusedByEngine, " by the engine", false);
  appendItem(list, counts.refusedAngle, " for an angle", false);
  appendItem(list, counts.refusedCounty, " for a county, zone or datum", false);
  appendPlace(list += "; ", counts.firstSkippedLine, counts.firstSkippedFile);
  return list + ": " + counts.firstSkipReason;
}

std::string passedOverList(const RecordCounts& counts) {
  std::string list;
  appendItem(list, counts.withoutDelimiter, " without delimiter", true);
  appendItem(list, counts.zeroCoordinate, " with a zero coordinate", true);
  appendItem(list, counts.comment, " comment", true);
  appendItem(list, counts.noPoint, " without a point", true);
  appendItem(list, counts.otherZone, " of another zone", true);
  return list;
}

std::string recordsReadText(const RecordCounts& counts) {
  std::string text;
  const std::uint64_t read = recordsRead(counts);
  appendCount(text, read, read == 1 ? " record read" : " records read");
  return text;
}

std::string fatesLine(const RecordCounts& counts) {
  std::string line = recordsReadText(counts) + ": ";
  appendCount(line, counts.converted, " converted, ");
  appendCount(line, recordsSkipped(counts), " skipped");
  if (recordsSkipped(counts) > 0) line += " (" + skippedList(counts) + ")";
  appendCount(line += ", ", recordsPassedOver(counts), " passed over");
  if (recordsPassedOver(counts) > 0) line += " (" + passedOverList(counts) + ")";
  return line;
}

}  // namespace

std::vector<std::string> accountLines(const RunResult& result) {
  const std::string standing = messages::targetStands(result.target, result.counts, result.targetName);
  std::vector<std::string> lines;
  if (result.outcome == RunOutcome::Cancelled) lines.emplace_back("The run was stopped before its end");
  if (standing.empty() || result.counts.converted == 0) {
    lines.push_back(fatesLine(result.counts));
    if (!standing.empty()) lines.push_back(standing);
  } else {
    // The converted points are not in the file, so a count of them would mislead.
    lines.push_back(recordsReadText(result.counts) + "; " + standing);
  }
  for (std::string& line : doubtLines(result.counts.doubts)) lines.push_back(std::move(line));
  return lines;
}

}  // namespace tovak::run
