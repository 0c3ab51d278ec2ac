#include "run/preview_verdict.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "text/number.h"

namespace tovak::run {
namespace {

std::string countOf(std::uint64_t count) {
  std::string text;
  text::appendWhole(text, static_cast<std::int64_t>(count));
  return text;
}

std::string counted(std::uint64_t count, std::string_view one, std::string_view several) {
  return countOf(count).append(count == 1 ? one : several);
}

/// "12", or "the first 200" where there is more.
std::string extent(const Preview& preview) {
  return (preview.complete ? "" : "the first ") + countOf(preview.rows.size());
}

std::string onOneLine(std::string text) {
  std::ranges::replace(text, '\n', ' ');
  return text;
}

/// The reason that most refused records have, and how many have another.
std::string refusalText(const Preview& preview) {
  std::map<std::string_view, std::uint64_t> reasons;
  std::uint64_t refused = 0;
  for (const PreviewRow& row : preview.rows) {
    if (row.fate != Fate::Refused) continue;
    ++reasons[row.reason];
    ++refused;
  }
  const auto most = std::ranges::max_element(reasons, {}, [](const auto& reason) { return reason.second; });
  std::string text = countOf(refused) + " of " + extent(preview) + " refused: " + onOneLine(std::string(most->first));
  while (text.ends_with('.')) text.pop_back();
  const std::uint64_t others = refused - most->second;
  if (others != 0) text += " (" + counted(others, " for another reason)", " for other reasons)");
  return text;
}

std::string doubtsText(const Preview& preview) {
  std::string text;
  const Doubts& doubts = preview.counts.doubts;
  for (std::size_t kind = 0; kind < kDoubtKinds; ++kind) {
    const auto doubt = static_cast<Doubt>(kind);
    if (doubts[kind].count == 0 || doubt == Doubt::NotBelow60) continue;
    text += doubt == Doubt::OtherSystem ? "; the file itself says that it holds " + doubts[kind].about
                                        : "; " + countOf(doubts[kind].count) + ' ' + doubtPhrase(doubts, doubt);
  }
  return text;
}

std::string ratesText(const Preview& preview) {
  if (preview.rows.empty()) {
    const std::uint64_t lines = recordsPassedOver(preview.counts);
    if (!preview.complete) return "No point was found in the beginning of the file";
    return lines == 0 ? "No point was found" : "No point was found in " + counted(lines, " line", " lines");
  }
  if (recordsSkipped(preview.counts) != 0) return refusalText(preview);
  return countOf(preview.counts.converted) + " of " + extent(preview) +
         (preview.rows.size() == 1 ? " record" : " records") + " would be converted";
}

}  // namespace

void tellVerdict(Preview& preview) {
  const std::string doubts = doubtsText(preview);
  if (preview.problem) {
    preview.verdictText = onOneLine(preview.problem->text);
    preview.verdict = Verdict::Bad;
    return;
  }
  preview.verdictText = ratesText(preview) + doubts;
  const bool bad = preview.rows.empty() || recordsSkipped(preview.counts) != 0;
  const std::uint64_t passedOver = recordsPassedOver(preview.counts);
  if (!preview.rows.empty() && passedOver != 0) {
    preview.verdictText += "; " + counted(passedOver, " line passed over", " lines passed over");
  }
  preview.verdict = bad ? Verdict::Bad : doubts.empty() ? Verdict::Good : Verdict::Doubtful;
}

}  // namespace tovak::run
