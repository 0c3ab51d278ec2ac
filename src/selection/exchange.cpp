#include "selection/exchange.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "run/format_index.h"

namespace tovak::selection {
namespace {

struct BothWays {
  std::int16_t source;
  std::int16_t target;
};

/// The formats that are both read and written.
constexpr BothWays kBothWays[] = {
    {run::source::CommaDelimited, run::target::CommaDelimited},
    {run::source::Vesko80Column, run::target::Vesko80Column},
    {run::source::BlueBook, run::target::BlueBook},
    {run::source::Sdms, run::target::Sdms},
    {run::source::Maptech, run::target::Maptech},
    {run::source::WayPointsPlus, run::target::WayPointsPlus},
};

/// The formats after an exchange, where each side's format has a counterpart on the other.
std::optional<BothWays> exchanged(const run::RunSettings& settings) {
  const auto* const read = std::ranges::find(kBothWays, settings.sourceFormat, &BothWays::source);
  const auto* const written = std::ranges::find(kBothWays, settings.targetFormat, &BothWays::target);
  if (read == std::end(kBothWays) || written == std::end(kBothWays)) return std::nullopt;
  return BothWays{.source = written->source, .target = read->target};
}

}  // namespace

bool canExchangeSides(const Selections& selections, const run::FormatTables& formats) {
  return !usesDatabase(selections, formats) && !isAgencyRun(selections, formats);
}

bool formatsCanExchange(const Selections& selections) {
  return exchanged(selections.run).has_value();
}

void exchangeSides(Selections& selections, const run::FormatTables& formats) {
  run::RunSettings& settings = selections.run;
  const BothWays present = {.source = settings.sourceFormat, .target = settings.targetFormat};
  const std::optional<BothWays> other = exchanged(settings);
  std::swap(settings.SourceProjectionCode, settings.TargetProjectionCode);
  std::swap(settings.source, settings.target);
  if (other) {
    std::swap(settings.sourceDelimited, settings.targetDelimited);
  } else {
    std::swap(settings.source.fileName, settings.target.fileName);
  }
  // What a format brings along, such as a form of angles, comes with its new side.
  chooseTargetFormat(selections, formats, other.value_or(present).target);
  chooseSourceFormat(selections, formats, other.value_or(present).source);
}

}  // namespace tovak::selection
