#include "selection/own_file.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>

#include "run/labels.h"
#include "run/projection_code.h"
#include "text/line_reader.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::selection {
namespace {

using run::Adjustment;

constexpr std::string_view kIdentification = "$Tovak#";

/// A run of codes on NAD83, and the distance to their twins on NAD27.
struct TwinCodes {
  std::int16_t first;
  std::int16_t last;
  std::int16_t distance;
};

// UTM's neighbouring zones were added behind all others, and the other way round.
constexpr TwinCodes kTwinCodes[] = {{0, 102, 103}, {266, 267, -2}};

std::int16_t twinOn(bool nad27, std::int16_t code) {
  for (const TwinCodes& twins : kTwinCodes) {
    const int onNad83 = run::isNad27(code) ? code - twins.distance : code;
    if (onNad83 < twins.first || onNad83 > twins.last) continue;
    return static_cast<std::int16_t>(nad27 ? onNad83 + twins.distance : onNad83);
  }
  return code;
}

std::optional<Adjustment> declaredAdjustment(std::string_view datum) {
  for (int i = 0; i <= static_cast<int>(Adjustment::Nad83_2011); ++i) {
    const auto adjustment = static_cast<Adjustment>(i);
    if (run::datumLabel(run::kLatLongNad83, adjustment) == datum) return adjustment;
  }
  return std::nullopt;
}

}  // namespace

bool presetFromIdentification(Selections& selections, std::string_view line) {
  if (!line.starts_with(kIdentification)) return false;
  line.remove_prefix(kIdentification.size());
  const text::LeadingNumber number = text::parseLeadingNumber(line);
  const std::optional<std::int16_t> code = text::toInt16(number.value);
  const std::size_t separator = line.find("$ ");
  if (number.length == 0 || !code || separator == std::string_view::npos) return false;

  const std::string_view declared = line.substr(separator + 2);
  const std::string_view datum = declared.substr(0, declared.find(' '));
  const bool nad27 = datum == run::datumLabel(run::kLatLongNad27, Adjustment::None);
  const std::optional<Adjustment> adjustment = declaredAdjustment(datum);
  pickProjection(selections, Side::Source, nad27 || adjustment ? twinOn(nad27, *code) : *code);
  chooseUnit(selections, Side::Source, text::endsWithIgnoringCase(text::trimBlanks(declared), "(Meters)"));
  // A file on NAD27 knows nothing of the adjustments of the other datum: the choice stays.
  if (adjustment) chooseAdjustment(selections, *adjustment);
  return true;
}

bool presetFromFile(Selections& selections, const std::string& fileName) {
  // What a pipe gives once is left to the run.
  std::error_code unknown;
  if (!std::filesystem::is_regular_file(fileName, unknown)) return false;
  text::LineReader reader;
  std::string_view line;
  return reader.open(fileName) && reader.next(line) && presetFromIdentification(selections, line);
}

}  // namespace tovak::selection
