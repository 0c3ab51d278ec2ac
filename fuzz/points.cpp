// Point files: the first byte chooses the target, the second the source, the third the rest of the selections.
#include <algorithm>
#include <cmath>

#include "harness.h"
#include "run/format_index.h"
#include "run/preview.h"

using namespace tovak;

namespace {

using Call = tests::ScriptedEngine::Call;

/// Targets that a source can read back, field by field.
constexpr std::pair<std::int16_t, std::int16_t> kBothWays[] = {
    {run::target::CommaDelimited, run::source::CommaDelimited},
    {run::target::Vesko80Column, run::source::Vesko80Column},
    {run::target::BlueBook, run::source::BlueBook},
    {run::target::Sdms, run::source::Sdms},
};

/// Points written without a doubt are read back as the same points, within the precision written. Rounding may turn a
/// coordinate into zero, and then the line is no longer a point.
void requireSameAgain(run::RunSettings settings, const fuzz::Account& first) {
  const auto way = std::ranges::find(kBothWays, settings.targetFormat, [](const auto& pair) { return pair.first; });
  if (way == std::end(kBothWays) || anyDoubt(first.result.counts.doubts)) return;
  const std::vector<Call> calls = fuzz::engine().calls;
  const bool angles = settings.TargetProjectionCode == 0;
  // This format reads plane coordinates in a different order from the one it writes.
  if (way->first == run::target::BlueBook && !angles) return;
  // The engine serves the north west of the world under 100 degrees only, and formats rely on it.
  const auto ordinary = [angles](const Call& call) {
    const double west = angles ? -call.easting : call.easting;
    return call.northing >= 1 && west >= 1 && call.northing < (angles ? 90 : 1e7) && west < (angles ? 100 : 1e7);
  };
  if (!std::ranges::all_of(calls, ordinary)) return;
  settings.sourceFormat = way->second;
  std::swap(settings.source.fileName, settings.target.fileName);
  settings.latLongForm = text::AngleForm::DegreesMinutesSeconds;
  const fuzz::Account again = fuzz::runOnce(settings, fuzz::engine());
  const std::string written = tests::contentsOf(settings.source.fileName);
  if (again.result.outcome != run::RunOutcome::Finished || anyDoubt(again.result.counts.doubts)) return;
  fuzz::require(again.result.counts.converted == first.result.counts.converted,
                "as many points are read as were written", written);
  const double step = angles ? 0.01 / 3600 : 0.51;
  for (std::size_t i = 0; i < calls.size(); ++i) {
    const Call& call = fuzz::engine().calls[i];
    const bool near =
        std::abs(call.northing - calls[i].northing) <= step && std::abs(call.easting - calls[i].easting) <= step;
    fuzz::require(near, "a point is read as it was written", written);
  }
}

/// What was shown before a run is what it wrote.
void requirePreviewAlike(const run::RunSettings& settings, const fuzz::Account& account) {
  std::vector<Call> calls = fuzz::engine().calls;
  const run::Preview preview = run::previewRun(settings, fuzz::engine(), fuzz::tables());
  fuzz::engine().calls = std::move(calls);
  if (!preview.complete) return;
  const run::RecordCounts& counts = account.result.counts;
  fuzz::require(
      preview.counts.converted == counts.converted && recordsSkipped(preview.counts) == recordsSkipped(counts),
      "the preview has as many points as the run", preview.verdictText);
  // An older target stays when no point was converted.
  if (counts.converted == 0) return;
  // The name of some targets gets an ending.
  const std::string written = tests::contentsOf(account.result.targetName);
  fuzz::require(preview.targetText == written, "the preview shows what the run writes", written);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const run::FormatTables& formats = fuzz::tables();
  const auto target = static_cast<std::int16_t>(fuzz::takeByte(bytes) % formats.targets.size());
  const auto source = static_cast<std::int16_t>(1 + fuzz::takeByte(bytes) % (formats.sources.size() - 1));
  const unsigned choices = fuzz::takeByte(bytes);
  run::RunSettings settings = fuzz::settingsFor(source, target, (choices & 1U) != 0 ? 0 : 4);
  settings.source.metres = settings.target.metres = (choices & 2U) != 0;
  constexpr text::AngleForm kForms[] = {text::AngleForm::DegreesMinutesSeconds, text::AngleForm::DecimalDegrees,
                                        text::AngleForm::DegreesDecimalMinutes};
  settings.latLongForm = kForms[(choices >> 2U) % 3];
  settings.accuracy = static_cast<text::Accuracy>((choices >> 4U) % 4);
  settings.options.geodeticCsv.horizontal = static_cast<std::int16_t>(1 + 2 * ((choices >> 4U) % 6));
  settings.options.geodeticCsv.vertical = 13;
  fuzz::folder().write("in", bytes);
  fuzz::folder().write("out.txt", "");

  const fuzz::Account account = fuzz::runOnce(settings, fuzz::engine());
  if (run::source::isAgency(source)) return 0;
  fuzz::requireSums(account);
  if (account.result.outcome != run::RunOutcome::Finished) return 0;
  const bool lineARecord = source == run::source::CommaDelimited || source >= run::source::Maptech;
  if (lineARecord && source != run::source::GeodeticCsv) {
    text::LineReader lines;
    lines.open(settings.source.fileName);
    for (std::string_view line; lines.next(line);) continue;
    fuzz::require(recordsRead(account.result.counts) == lines.lineNumber(), "every line is accounted for");
  }
  requirePreviewAlike(settings, account);
  if (account.result.counts.converted > 0) requireSameAgain(settings, account);
  return 0;
}
