#include "run/identification.h"

#include <cstddef>
#include <filesystem>
#include <system_error>

#include "run/labels.h"
#include "run/projection_code.h"
#include "text/line_reader.h"
#include "text/native_path.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::run {
namespace {

constexpr std::string_view kBeginning = "$Tovak#";
constexpr std::string_view kDatumFollows = "$ ";
constexpr std::string_view kMetres = "(Meters)";
constexpr std::string_view kFeet = "(Feet)";

std::optional<Adjustment> declaredAdjustment(std::string_view datum) {
  for (int i = 0; i <= static_cast<int>(Adjustment::Nad83_2011); ++i) {
    const auto adjustment = static_cast<Adjustment>(i);
    if (datumLabel(false, adjustment) == datum) return adjustment;
  }
  return std::nullopt;
}

}  // namespace

std::string identificationLine(const RunSettings& settings) {
  std::string line(kBeginning);
  line += settings.target.projectionText;
  line += adjustmentSuffix(settings, settings.TargetProjectionCode);
  line += kDatumFollows;
  line += datumLabel(settings, settings.TargetProjectionCode);
  line += ' ' + settings.target.displayName + ' ';
  line += settings.target.metres ? kMetres : kFeet;
  return line;
}

std::optional<Identification> readIdentification(std::string_view line) {
  if (!line.starts_with(kBeginning)) return std::nullopt;
  line.remove_prefix(kBeginning.size());
  const text::LeadingNumber number = text::parseLeadingNumber(line);
  const std::optional<std::int16_t> code = text::toInt16(number.value);
  const std::size_t separator = line.find(kDatumFollows);
  if (number.length == 0 || !code || separator == std::string_view::npos) return std::nullopt;
  const std::string_view declared = line.substr(separator + kDatumFollows.size());
  const std::string_view datum = declared.substr(0, declared.find(' '));
  const bool nad27 = datum == datumLabel(true, Adjustment::None);
  const std::optional<Adjustment> adjustment = declaredAdjustment(datum);
  return Identification{.code = nad27 || adjustment ? twinOn(nad27, *code) : *code,
                        .metres = text::endsWithIgnoringCase(text::trimBlanks(declared), kMetres),
                        .adjustment = adjustment};
}

std::optional<Identification> identificationOf(const std::string& fileName) {
  // A pipe can be read only once, and that is left to the run.
  std::error_code unknown;
  if (!std::filesystem::is_regular_file(text::pathOf(fileName), unknown)) return std::nullopt;
  text::LineReader reader;
  std::string_view line;
  if (!reader.open(fileName) || !reader.next(line)) return std::nullopt;
  return readIdentification(line);
}

bool contradicts(const Identification& file, const RunSettings& settings) {
  if (file.code != settings.SourceProjectionCode || file.metres != settings.source.metres) return true;
  const bool bothNamed =
      file.adjustment.value_or(Adjustment::None) != Adjustment::None && settings.adjustment != Adjustment::None;
  return bothNamed && *file.adjustment != settings.adjustment;
}

}  // namespace tovak::run
