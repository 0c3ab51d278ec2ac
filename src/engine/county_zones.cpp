#include "engine/county_zones.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "engine/definition.h"
#include "run/data_folder.h"
#include "run/module_loader.h"
#include "text/line_reader.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::engine {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFileName = "counties.txt";
constexpr char kSeparator = '|';
constexpr std::size_t kLongestLine = 8192;
constexpr std::int16_t kTwinDistance = 103;

/// First zones of the counties that are divided, and yet named without a zone word.
constexpr std::int16_t kFirstZones[] = {8, 16, 22, 39, 49, 80};

struct DatumCodes {
  Datum datum;
  std::int16_t first;
  std::int16_t last;
};

constexpr DatumCodes kDatums[] = {{Datum::nad83, 5, 102}, {Datum::nad27, 108, 205}};

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

std::string readDatumAndCode(std::string_view code, std::string_view datum, CountyZone& zone) {
  const auto* const codes = std::ranges::find(kDatums, datum, [](const DatumCodes& of) { return nameOf(of.datum); });
  if (codes == std::end(kDatums)) return "the datum is neither NAD83 nor NAD27";
  zone.datum = codes->datum;
  const std::optional<double> number = text::strictNumber(code);
  const std::optional<std::int16_t> whole = number ? text::toInt16(*number) : std::nullopt;
  if (!whole || *whole != *number) return "the code is no whole number";
  zone.code = *whole;
  if (zone.code >= codes->first && zone.code <= codes->last) return {};
  return "the codes of county zones are 5 to 102 on NAD83 and 108 to 205 on NAD27";
}

std::string readNames(std::string_view county, std::string_view word, std::string_view zoneText, CountyZone& zone) {
  if (county.empty()) return "the county has no name";
  for (const std::string_view name : {county, word, zoneText}) {
    // The agency's files, in which these texts stand, are split at commas; the sign "~" ends a system's name.
    if (name.find_first_of(",~") != std::string_view::npos) return "a name holds a comma or \"~\"";
  }
  zone.county = county;
  zone.word = word;
  zone.place = word.empty() ? zone.county : zone.county + ' ' + zone.word;
  zone.text = zoneText;
  return {};
}

/// Fills `zone` from a line, or gives the reason why it cannot.
std::string readLine(std::string_view line, CountyZone& zone) {
  if (line.size() > kLongestLine) return "the line is longer than 8192 characters";
  if (text::hasControlCharacter(line)) return "the line holds a tab or another control character";
  const auto fields = split(line);
  if (!fields) return "seven fields with \"|\" between them are expected";
  const auto& [code, county, word, zoneText, datum, letter, definition] = *fields;
  std::string reason = readDatumAndCode(code, datum, zone);
  if (reason.empty()) reason = readNames(county, word, zoneText, zone);
  if (!reason.empty()) return reason;
  if (letter != "N" && letter != "C" && letter != "S") return "the state plane letter is none of N, C and S";
  zone.statePlane = letter.front();
  if (definition.empty()) return "the definition is missing";
  zone.definition = definition;
  return {};
}

bool isTwin(const CountyZone& a, const CountyZone& b) {
  return a.county == b.county && a.word == b.word && a.text == b.text && a.statePlane == b.statePlane;
}

std::string lineOf(const CountyZone& zone) {
  std::string text = " line ";
  text::appendWhole(text, static_cast<std::int64_t>(zone.line));
  return text;
}

std::string systemName(const CountyZone& zone) {
  std::string name = "County zone ";
  name += !zone.text.empty() ? zone.text : zone.place;
  return name + ", " + std::string(nameOf(zone.datum));
}

/// The reason why a zone cannot stand beside those before it.
std::string conflict(const std::vector<CountyZone>& zones, const CountyZone& zone) {
  for (const CountyZone& other : zones) {
    if (other.code == zone.code) return "the code stands in" + lineOf(other) + " too";
    const bool samePlace = text::equalsIgnoringCase(other.place, zone.place);
    if (other.datum == zone.datum && samePlace) return "the county and zone stand in" + lineOf(other) + " too";
    const bool twinCodes = std::abs(other.code - zone.code) == kTwinDistance;
    if (twinCodes && !isTwin(other, zone))
      return "county, zone and state plane letter are not those of the other datum's" + lineOf(other);
    if (samePlace && !twinCodes) return "the code is not 103 from that of the other datum's" + lineOf(other);
  }
  return {};
}

}  // namespace

std::string countyFile() {
  const fs::path folder = run::dataFolder();
  std::error_code error;
  if (!folder.empty() && fs::symlink_status(folder / kFileName, error).type() != fs::file_type::not_found)
    return (folder / kFileName).string();
  return run::programFile(kFileName);
}

std::vector<CountyZone> readCountyZones(const std::string& fileName, std::string& error) {
  std::vector<CountyZone> zones;
  text::LineReader lines;
  lines.open(fileName);
  for (std::string_view line; lines.next(line);) {
    if (text::trimBlanks(line).empty() || line.front() == '#') continue;
    CountyZone zone;
    zone.line = lines.lineNumber();
    std::string reason = readLine(line, zone);
    if (reason.empty()) reason = conflict(zones, zone);
    if (!reason.empty()) {
      error = text::faultAtLine(fileName, zone.line, reason);
      return {};
    }
    zones.push_back(std::move(zone));
  }
  error = lines.error();
  return zones;
}

std::vector<CoordinateSystem> countySystems(pj_ctx* context, const std::string& fileName,
                                            const std::vector<CountyZone>& zones, std::string& error) {
  std::vector<CoordinateSystem> systems;
  for (const CountyZone& zone : zones) {
    ParametersResult read = readDefinition(context, zone.definition, zone.datum);
    if (!read.reason.empty()) {
      error = text::faultAtLine(fileName, zone.line, "the definition cannot be used: " + read.reason);
      return {};
    }
    systems.push_back({zone.code, systemName(zone), zone.datum, SystemKind::county, std::move(read.parameters)});
  }
  return systems;
}

const CountyZone* findZone(const std::vector<CountyZone>& zones, std::string_view text) {
  text = text::trimBlanks(text);
  const CountyZone* first = nullptr;
  for (const CountyZone& zone : zones) {
    if (zone.datum != Datum::nad83) continue;
    if (text::equalsIgnoringCase(zone.place, text)) return &zone;
    const bool standsForCounty = std::ranges::find(kFirstZones, zone.code) != std::end(kFirstZones);
    if (standsForCounty && text::equalsIgnoringCase(zone.county, text)) first = &zone;
  }
  return first;
}

}  // namespace tovak::engine
