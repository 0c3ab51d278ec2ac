/// What makes a converted point, or a whole run, doubtful. A doubtful point is converted and written like any other;
/// the account tells how many there are of each kind, and where the first one is.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "run/tally.h"

namespace tovak::run {

enum class Doubt : std::uint8_t {
  TextBehindNumber,   ///< a coordinate or elevation has text after its number
  ShiftedColumns,     ///< a text holds the target's delimiter or a quotation mark
  CoarseCoordinates,  ///< written less precisely than chosen, because the elevation has fewer decimals
  TooWide,            ///< a field is too wide for its columns: the record broke, or a name was cut
  OutsideSourceArea,  ///< outside the usual area of the source's system
  OutsideTargetArea,
  RunTogether,         ///< a value is given twice in one block: two points may have run together
  OtherSystem,         ///< the source's own first line names a different system or unit from the run's
  UnscaledHeights,     ///< a geoid or ellipsoid height stays in the source's unit while the unit changes
  FirstZone,           ///< the county is divided and no zone was named: its first zone was taken
  NotBelow60,          ///< refused for minutes or seconds of 60 or more: the angles may be decimal degrees
  ShortPacked,         ///< a packed angle below 100, which may be decimal degrees
  ReplacedCharacters,  ///< a text has characters that the target cannot hold, and others stand for them
  SourceChanged,       ///< another program changed, replaced or removed the source before it was read to its end
};
inline constexpr std::size_t kDoubtKinds = 14;

/// The doubts about one point. Readers, writers and the run raise them; the run counts them when it has finished the
/// point.
class DoubtFlags {
 public:
  void raise(Doubt doubt) { bits_ |= 1U << static_cast<unsigned>(doubt); }
  bool any() const { return bits_ != 0; }
  bool has(Doubt doubt) const { return (bits_ >> static_cast<unsigned>(doubt) & 1U) != 0; }
  void clear() { bits_ = 0; }

 private:
  std::uint32_t bits_ = 0;
};

/// How many points a doubt is about.
struct DoubtTally : Tally {
  std::string about = {};  ///< what else the sentence names: a system's name, what a file says about itself
};
using Doubts = std::array<DoubtTally, kDoubtKinds>;  ///< by kind

inline DoubtTally& tallyOf(Doubts& doubts, Doubt kind) {
  return doubts[static_cast<std::size_t>(kind)];
}
inline const DoubtTally& tallyOf(const Doubts& doubts, Doubt kind) {
  return doubts[static_cast<std::size_t>(kind)];
}

/// Counts the doubts raised about the record that begins in `line`; `file` names its file when the source has several.
void countDoubts(Doubts& doubts, const DoubtFlags& flags, std::uint64_t line, std::string_view file = {});

bool anyDoubt(const Doubts& doubts);

/// What a doubt is about, in words that follow a point or a number of points: "outside the usual area of State plane
/// Central, NAD83".
std::string doubtPhrase(const Doubts& doubts, Doubt kind);

/// A sentence for each kind that was raised, such as "3 points lie outside the usual area of State plane Central,
/// NAD83, the first in line 12".
std::vector<std::string> doubtLines(const Doubts& doubts);

}  // namespace tovak::run
