/// The account of a run: what became of every record of the source.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "run/doubts.h"
#include "run/tally.h"

namespace tovak::run {

struct RecordCounts {
  std::uint64_t converted = 0;

  Tally refusedByEngine;
  Tally refusedAngle;   ///< a latitude or longitude that is not an angle
  Tally refusedCounty;  ///< a county, county zone or datum that is unknown or missing
  std::uint64_t firstSkippedLine = 0;
  std::string firstSkippedFile;  ///< where the source is several files; else empty
  std::string firstSkipReason;

  Tally withoutDelimiter;
  Tally zeroCoordinate;
  Tally comment;
  Tally noPoint;    ///< a record that is not a point in its format
  Tally otherZone;  ///< a point of another county zone than the chosen one

  Doubts doubts;  ///< about points whose fate is counted above
};

/// From now on each tally keeps its first lines, at most that many.
void keepLines(RecordCounts& counts, std::size_t most);

/// Converted, skipped and passed over together.
std::uint64_t recordsRead(const RecordCounts& counts);
/// Points that were refused, by the engine or because of their record.
std::uint64_t recordsSkipped(const RecordCounts& counts);
/// Lines that are not points.
std::uint64_t recordsPassedOver(const RecordCounts& counts);

/// Counts a refused point under `tally`, and keeps line, reason and file of the first.
void countSkipped(RecordCounts& counts, Tally& tally, std::uint64_t line, const std::string& reason,
                  std::string_view file = {});

}  // namespace tovak::run
