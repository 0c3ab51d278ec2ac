#include "engine/county_zones.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "engine/definition.h"
#include "run/divided_counties.h"
#include "run/module_loader.h"
#include "run/projection_code.h"
#include "text/line_reader.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::engine {
namespace {

constexpr char kSeparator = '|';
constexpr std::size_t kLongestLine = 8192;
struct DatumCodes {
  Datum datum;
  std::int16_t first;
  std::int16_t last;
};

constexpr DatumCodes kDatums[] = {
    {Datum::nad83, run::kFirstCountyZone, run::kLastCountyZone},
    {Datum::nad27, run::kFirstCountyZone + run::kTwinDistance, run::kLastCountyZone + run::kTwinDistance}};

/// The fields of a line; nothing when there are too few.
std::optional<std::array<std::string_view, 7>> split(std::string_view line) {
  std::array<std::string_view, 7> fields;
  for (std::size_t i = 0; i + 1 < fields.size(); ++i) {
    const std::size_t end = line.find(kSeparator);
    if (end == std::string_view::npos) return std::nullopt;
    fields[i] = text::trimBlanks(line.substr(0, end));
    line.remove_prefix(end + 1);
  }
  fields.back() = text::trimBlanks(line);
  return fields;
}

std::string readDatumAndCode(std::string_view code, std::string_view datum, CatalogueZone& zone) {
  const auto* const codes = std::ranges::find(kDatums, datum, [](const DatumCodes& of) { return nameOf(of.datum); });
  if (codes == std::end(kDatums)) return "the datum is neither NAD83 nor NAD27";
  zone.datum = codes->datum;
  const std::optional<double> number = text::strictNumber(code);
  const std::optional<std::int16_t> whole = number ? text::toInt16(*number) : std::nullopt;
  if (!whole || *whole != *number) return "the code is not a whole number";
  zone.code = *whole;
  if (zone.code >= codes->first && zone.code <= codes->last) return {};
  return "the codes of county zones are 5 to 102 on NAD83 and 108 to 205 on NAD27";
}

std::string readNames(std::string_view county, std::string_view word, std::string_view zoneText, CatalogueZone& zone) {
  if (county.empty()) return "the county has no name";
  for (const std::string_view name : {county, word, zoneText}) {
    // The agency's files, in which these texts occur, are split at commas; a "~" ends a system's name.
    if (name.find_first_of(",~") != std::string_view::npos) return "a name holds a comma or \"~\"";
  }
  zone.county = county;
  zone.word = word;
  zone.place = word.empty() ? zone.county : zone.county + ' ' + zone.word;
  zone.text = zoneText;
  return {};
}

/// Fills `zone` from a line, or gives the reason why it cannot.
std::string readLine(std::string_view line, CatalogueZone& zone) {
  if (line.size() > kLongestLine) return "the line is longer than 8192 characters";
  if (text::hasControlCharacter(line)) return "the line holds a tab or another control character";
  const auto fields = split(line);
  if (!fields) return "seven fields with \"|\" between them are expected";
  const auto& [code, county, word, zoneText, datum, letter, definition] = *fields;
  std::string reason = readDatumAndCode(code, datum, zone);
  if (reason.empty()) reason = readNames(county, word, zoneText, zone);
  if (!reason.empty()) return reason;
  if (letter != "N" && letter != "C" && letter != "S") return "the state plane letter is not N, C or S";
  zone.statePlane = letter.front();
  if (definition.empty()) return "the definition is missing";
  zone.definition = definition;
  return {};
}

bool isTwin(const CatalogueZone& a, const CatalogueZone& b) {
  return a.county == b.county && a.word == b.word && a.text == b.text && a.statePlane == b.statePlane;
}

std::string lineOf(const CatalogueZone& zone) {
  std::string text = " line ";
  text::appendWhole(text, static_cast<std::int64_t>(zone.line));
  return text;
}

std::string systemName(const CatalogueZone& zone) {
  std::string name = "County zone ";
  name += !zone.text.empty() ? zone.text : zone.place;
  return name + ", " + std::string(nameOf(zone.datum));
}

/// The reason why a zone conflicts with an earlier one.
std::string conflict(const std::vector<CatalogueZone>& zones, const CatalogueZone& zone) {
  for (const CatalogueZone& other : zones) {
    if (other.code == zone.code) return "the code is already in" + lineOf(other);
    const bool samePlace = text::equalsIgnoringCase(other.place, zone.place);
    if (other.datum == zone.datum && samePlace) return "the county and zone are already in" + lineOf(other);
    const bool twinCodes = std::abs(other.code - zone.code) == run::kTwinDistance;
    if (twinCodes && !isTwin(other, zone))
      return "county, zone and state plane letter differ from those of the other datum in" + lineOf(other);
    if (samePlace && !twinCodes) return "the code is not 103 from that of the other datum's" + lineOf(other);
  }
  return {};
}

}  // namespace

std::string countyFile() {
  return run::dataFile("counties.txt");
}

text::Result<std::vector<CatalogueZone>> readCountyZones(const std::string& fileName) {
  using Zones = text::Result<std::vector<CatalogueZone>>;
  std::vector<CatalogueZone> zones;
  text::LineReader lines;
  lines.open(fileName);
  for (std::string_view line; lines.next(line);) {
    if (text::trimBlanks(line).empty() || line.front() == '#') continue;
    CatalogueZone zone;
    zone.line = lines.lineNumber();
    std::string reason = readLine(line, zone);
    if (reason.empty()) reason = conflict(zones, zone);
    if (!reason.empty()) return Zones::failure(text::faultAtLine(fileName, zone.line, reason));
    zones.push_back(std::move(zone));
  }
  return lines.error().empty() ? Zones(std::move(zones)) : Zones::failure(lines.error());
}

text::Result<std::vector<CoordinateSystem>> countySystems(pj_ctx* context, const std::string& fileName,
                                                          const std::vector<CatalogueZone>& zones) {
  using Systems = text::Result<std::vector<CoordinateSystem>>;
  std::vector<CoordinateSystem> systems;
  for (const CatalogueZone& zone : zones) {
    text::Result<Parameters> read = readDefinition(context, zone.definition, zone.datum);
    // A zone has both units; the person chooses.
    if (read && read->feet) read = text::Result<Parameters>::failure("its unit is not the metre");
    if (!read) {
      const std::string reason = "the definition cannot be used: " + read.error;
      return Systems::failure(text::faultAtLine(fileName, zone.line, reason));
    }
    systems.push_back({zone.code, systemName(zone), zone.datum, SystemKind::county, std::move(read->list)});
  }
  return systems;
}

const CatalogueZone* findZone(const std::vector<CatalogueZone>& zones, std::string_view text) {
  text = text::trimBlanks(text);
  const CatalogueZone* first = nullptr;
  for (const CatalogueZone& zone : zones) {
    if (zone.datum != Datum::nad83) continue;
    if (text::equalsIgnoringCase(zone.place, text)) return &zone;
    const bool standsForCounty = run::isDividedCounty(zone.code);
    if (standsForCounty && text::equalsIgnoringCase(zone.county, text)) first = &zone;
  }
  return first;
}

}  // namespace tovak::engine
