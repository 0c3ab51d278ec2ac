#include "run/doubts.h"

#include <algorithm>
#include <filesystem>

#include "text/native_path.h"
#include "text/number.h"

namespace tovak::run {
namespace {

/// The sentence for each kind, after the number of points; "%" is replaced by what the tally is about.
struct Sentence {
  std::string_view one;
  std::string_view several;
};

/// Indexed by `Doubt`.
constexpr auto kSentences = std::to_array<Sentence>({
    {" point has text after a number", " points have text after a number"},
    {" point has a text with the delimiter or a quotation mark, which shifts its columns when it is read back",
     " points have a text with the delimiter or a quotation mark, which shifts their columns when they are read back"},
    {" point was rounded to whole units because its elevation is written without decimals",
     " points were rounded to whole units because their elevations are written without decimals"},
    {" point has a field that is too wide for its columns", " points have a field that is too wide for its columns"},
    {" point lies outside the usual area of %", " points lie outside the usual area of %"},
    {" point lies outside the usual area of %", " points lie outside the usual area of %"},
    {" point has a value twice, so two points may have run together",
     " points have a value twice, so two points may have run together"},
    {" file says in its first line that it holds %", " files say in their first line that they hold %"},
    {" point has a geoid or ellipsoid height that stays in the source's unit",
     " points have a geoid or ellipsoid height that stays in the source's unit"},
    {" station of a divided county has no zone word, so its first zone was used",
     " stations of divided counties have no zone word, so the first zone was used"},
    {" point was refused because minutes or seconds are 60 or more (decimal degrees are read with -A4)",
     " points were refused because minutes or seconds are 60 or more (decimal degrees are read with -A4)"},
    {" point, all there are, was read as DD.MMSSsss (decimal degrees are read with -A4)",
     " points, all there are, were read as DD.MMSSsss (decimal degrees are read with -A4)"},
    {" point has a text with characters that the target cannot hold, so others stand for them",
     " points have a text with characters that the target cannot hold, so others stand for them"},
    {" source was changed, replaced or removed while it was read",
     " sources were changed, replaced or removed while they were read"},
});
static_assert(kSentences.size() == kDoubtKinds);

/// Indexed by `Doubt`.
constexpr auto kPhrases = std::to_array<std::string_view>({
    "with text after a number",
    "with a text that holds the delimiter or a quotation mark",
    "rounded to whole units because the elevation is written without decimals",
    "with a field too wide for its columns",
    "outside the usual area of %",
    "outside the usual area of %",
    "with a value that stands twice",
    "in a file that says it holds %",
    "with a geoid or ellipsoid height left in the source's unit",
    "in the first zone of a divided county, since no zone is named",
    "refused because minutes or seconds are 60 or more",
    "read as DD.MMSSsss, but perhaps decimal degrees",
    "with characters that the target cannot hold",
    "from a source that changed while it was read",
});
static_assert(kPhrases.size() == kDoubtKinds);

std::string filledIn(std::string_view pattern, const DoubtTally& tally) {
  std::string text(pattern);
  if (const std::size_t place = text.find('%'); place != std::string::npos) text.replace(place, 1, tally.about);
  return text;
}

std::string sentenceOf(const Sentence& sentence, const DoubtTally& tally) {
  std::string text;
  text::appendWhole(text, static_cast<std::int64_t>(tally.count));
  text += filledIn(tally.count == 1 ? sentence.one : sentence.several, tally);
  if (tally.firstLine == 0) return text;
  text += tally.count == 1 ? ", in line " : ", the first in line ";
  text::appendWhole(text, static_cast<std::int64_t>(tally.firstLine));
  if (!tally.firstFile.empty()) text += " of " + text::pathOf(tally.firstFile).filename().string();
  return text;
}

}  // namespace

void countDoubts(Doubts& doubts, const DoubtFlags& flags, std::uint64_t line, std::string_view file) {
  for (std::size_t kind = 0; kind < kDoubtKinds; ++kind) {
    if (flags.has(static_cast<Doubt>(kind))) addTo(doubts[kind], line, file);
  }
}

bool anyDoubt(const Doubts& doubts) {
  return std::ranges::any_of(doubts, [](const DoubtTally& tally) { return tally.count != 0; });
}

std::string doubtPhrase(const Doubts& doubts, Doubt kind) {
  return filledIn(kPhrases[static_cast<std::size_t>(kind)], tallyOf(doubts, kind));
}

std::vector<std::string> doubtLines(const Doubts& doubts) {
  std::vector<std::string> lines;
  for (std::size_t kind = 0; kind < kDoubtKinds; ++kind) {
    if (doubts[kind].count != 0) lines.push_back(sentenceOf(kSentences[kind], doubts[kind]));
  }
  return lines;
}

}  // namespace tovak::run
