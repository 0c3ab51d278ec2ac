// The agency exports: the first byte chooses which one.
#include "harness.h"
#include "run/format_index.h"

using namespace tovak;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const bool lmo = fuzz::takeByte(bytes) % 2 == 1;
  run::RunSettings settings = lmo ? fuzz::settingsFor(run::source::LmoBatch, run::target::LmoBatch, 4)
                                  : fuzz::settingsFor(run::source::GeodeticsSpecial, run::target::GeodeticsSpecial, 4);
  fuzz::folder().write("in", bytes);
  fuzz::folder().write("out.txt", "");
  const fuzz::Account account = fuzz::runOnce(settings, fuzz::engine());
  const run::RecordCounts& counts = account.result.counts;
  const std::uint64_t written = fuzz::linesIn(tests::contentsOf(settings.target.fileName));
  if (account.result.outcome != run::RunOutcome::Finished || counts.converted == 0) return 0;
  fuzz::require(written <= 1 + recordsRead(counts), "no line comes from nowhere");
  fuzz::require(written >= counts.converted + recordsSkipped(counts), "every record leaves a line");
  return 0;
}
