#include "run/record_counts.h"

namespace tovak::run {

void keepLines(RecordCounts& counts, std::size_t most) {
  for (Tally* const tally :
       {&counts.refusedByEngine, &counts.refusedAngle, &counts.refusedCounty, &counts.withoutDelimiter,
        &counts.zeroCoordinate, &counts.comment, &counts.noPoint, &counts.otherZone}) {
    tally->keeps = most;
  }
  for (DoubtTally& tally : counts.doubts) tally.keeps = most;
}

std::uint64_t recordsRead(const RecordCounts& counts) {
  return counts.converted + recordsSkipped(counts) + recordsPassedOver(counts);
}

std::uint64_t recordsSkipped(const RecordCounts& counts) {
  return counts.refusedByEngine.count + counts.refusedAngle.count + counts.refusedCounty.count;
}

std::uint64_t recordsPassedOver(const RecordCounts& counts) {
  return counts.withoutDelimiter.count + counts.zeroCoordinate.count + counts.comment.count + counts.noPoint.count +
         counts.otherZone.count;
}

void countSkipped(RecordCounts& counts, Tally& tally, std::uint64_t line, const std::string& reason,
                  std::string_view file) {
  if (recordsSkipped(counts) == 0) {
    counts.firstSkippedLine = line;
    counts.firstSkippedFile = file;
    counts.firstSkipReason = reason;
  }
  addTo(tally, line, file);
  if (tally.lines.size() == tally.count) tally.lines.back().reason = reason;
}

}  // namespace tovak::run
