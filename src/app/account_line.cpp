#include "app/account_line.h"

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "text/number.h"

namespace tovak::app {
namespace {

void appendCount(std::string& line, std::uint64_t count, std::string_view what) {
  text::appendWhole(line, static_cast<std::int64_t>(count));
  line += what;
}

/// Appends where the first of several records is.
void appendPlace(std::string& list, std::uint64_t line, const std::string& file) {
  list += "first in line ";
  appendCount(list, line, "");
  if (!file.empty()) list += " of " + std::filesystem::path(file).filename().string();
}

/// Appends one item of a list in brackets.
void appendItem(std::string& list, const run::Tally& tally, std::string_view what, bool tellLine) {
  if (tally.count == 0) return;
  if (!list.empty()) list += "; ";
  appendCount(list, tally.count, what);
  if (tellLine) appendPlace(list += ", ", tally.firstLine, tally.firstFile);
}

std::string skippedList(const run::RecordCounts& counts) {
  std::string list;
  appendItem(list, counts.refusedByEngine, " by the engine", false);
  appendItem(list, counts.refusedAngle, " for an angle", false);
  appendItem(list, counts.refusedCounty, " for a county, zone or datum", false);
  appendPlace(list += "; ", counts.firstSkippedLine, counts.firstSkippedFile);
  return list + ": " + counts.firstSkipReason;
}

std::string passedOverList(const run::RecordCounts& counts) {
  std::string list;
  appendItem(list, counts.withoutDelimiter, " without delimiter", true);
  appendItem(list, counts.zeroCoordinate, " with a zero coordinate", true);
  appendItem(list, counts.comment, " comment", true);
  appendItem(list, counts.noPoint, " without a point", true);
  appendItem(list, counts.otherZone, " of another zone", true);
  return list;
}

}  // namespace

std::string accountLine(const run::RecordCounts& counts) {
  std::string line;
  const std::uint64_t read = recordsRead(counts);
  appendCount(line, read, read == 1 ? " record read: " : " records read: ");
  appendCount(line, counts.converted, " converted, ");
  appendCount(line, recordsSkipped(counts), " skipped");
  if (recordsSkipped(counts) > 0) line += " (" + skippedList(counts) + ")";
  appendCount(line += ", ", recordsPassedOver(counts), " passed over");
  if (recordsPassedOver(counts) > 0) line += " (" + passedOverList(counts) + ")";
  return line;
}

}  // namespace tovak::app
