/// The account of a run: what became of every record of the source.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tovak::run {

/// How many records met one fate, and the line of the first.
struct Tally {
  std::uint64_t count = 0;
  std::uint64_t firstLine = 0;
  std::string firstFile = {};  ///< of that line, where the source is several files; else empty
};

void addTo(Tally& tally, std::uint64_t line, std::string_view file = {});

struct RecordCounts {
  std::uint64_t converted = 0;

  Tally refusedByEngine;
  Tally refusedAngle;   ///< a latitude or longitude that is no angle
  Tally refusedCounty;  ///< a county, county zone or datum that is unknown or not told
  std::uint64_t firstSkippedLine = 0;
  std::string firstSkippedFile;  ///< where the source is several files; else empty
  std::string firstSkipReason;

  Tally withoutDelimiter;
  Tally zeroCoordinate;
  Tally comment;
  Tally noPoint;    ///< a record of another kind than the points of its format
  Tally otherZone;  ///< a point of another county zone than the chosen one
};

/// Converted, skipped and passed over together.
std::uint64_t recordsRead(const RecordCounts& counts);
/// Points that were refused, by the engine or for what their record says.
std::uint64_t recordsSkipped(const RecordCounts& counts);
/// Lines that are no points.
std::uint64_t recordsPassedOver(const RecordCounts& counts);

/// Counts a refused point under `tally`, and keeps line, reason and file of the first.
void countSkipped(RecordCounts& counts, Tally& tally, std::uint64_t line, const std::string& reason,
                  std::string_view file = {});

}  // namespace tovak::run
