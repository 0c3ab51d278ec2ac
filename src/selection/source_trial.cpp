#include "selection/source_trial.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "run/format_index.h"
#include "run/projection_code.h"

namespace tovak::selection {
namespace {

bool isElsewhere(const run::PreviewRow& row) {
  return row.fate == run::Fate::Refused || row.doubts.has(run::Doubt::OutsideSourceArea);
}

bool isSound(const run::PreviewRow& row, bool alone) {
  // Of several points in decimal degrees one has minutes or seconds of 60 and more when they are read as packed ones.
  const bool ambiguous = alone && row.doubts.has(run::Doubt::ShortPacked);
  return !isElsewhere(row) && !ambiguous;
}

bool readsLines(const run::Preview& preview) {
  const run::Tally& undivided = preview.counts.withoutDelimiter;
  const run::Tally& zero = preview.counts.zeroCoordinate;
  const std::uint64_t missed = undivided.count + zero.count;
  const std::uint64_t firstMissed = undivided.count != 0 ? undivided.firstLine : zero.firstLine;
  return missed == 0 || (missed == 1 && firstMissed < preview.rows.front().line);
}

}  // namespace

run::Preview tryOnSource(const Selections& selections, const SuggestionTools& tools) {
  run::RunSettings settings = runSettings(selections, tools.formats);
  const std::int16_t source = settings.SourceProjectionCode;
  const bool nad27 = run::isNad27(source) && source != run::kUserDefinedProject;
  settings.targetFormat = run::target::ScreenOnly;
  settings.TargetProjectionCode = nad27 ? run::kLatLongNad27 : run::kLatLongNad83;
  settings.target.fileName.clear();
  settings.target.metres = settings.source.metres;
  settings.target.projectionText = run::projectionText(settings.TargetProjectionCode, settings.target.metres);
  return run::previewRun(std::move(settings), tools.engine, tools.formats);
}

bool readsWell(const run::Preview& preview) {
  const bool alone = preview.rows.size() == 1;
  return !preview.rows.empty() && readsLines(preview) &&
         std::ranges::all_of(preview.rows, [alone](const run::PreviewRow& row) { return isSound(row, alone); });
}

bool misplaced(const run::Preview& preview) {
  const auto elsewhere = std::ranges::count_if(preview.rows, isElsewhere);
  return elsewhere * 2 > static_cast<std::ptrdiff_t>(preview.rows.size());
}

}  // namespace tovak::selection
