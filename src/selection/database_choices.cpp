#include "selection/database_choices.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "run/projection_code.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::selection {
namespace {

using formats::database::SheetZone;
using run::Adjustment;

struct HorizontalReference {
  std::string_view text;
  std::int16_t code;
  Adjustment adjustment;
  std::int16_t projection;
};

constexpr std::int16_t kReferenceCoordinates = 11;

/// In the order of the list.
constexpr std::array<HorizontalReference, 6> kHorizontals = {{
    {"NAD83(2011) ADJ.", 1, Adjustment::Nad83_2011, run::kLatLongNad83},
    {"NAD83(2007) ADJ.", 3, Adjustment::Nad83_2007, run::kLatLongNad83},
    {"NAD83(1996) ADJ.", 5, Adjustment::Nad83_1996, run::kLatLongNad83},
    {"NAD83(1986) ADJ.", 7, Adjustment::Nad83_1986, run::kLatLongNad83},
    {"Reference Coords.", kReferenceCoordinates, Adjustment::None, run::kLatLongNad83},
    {"NAD27", 9, Adjustment::None, run::kLatLongNad27},
}};

struct VerticalReference {
  std::string_view text;
  std::int16_t code;
  run::VerticalDatum datum;
};

constexpr std::array<VerticalReference, 2> kVerticals = {{
    {"NAVD88", 13, run::VerticalDatum::Navd88},
    {"NGVD29", 14, run::VerticalDatum::Ngvd29},
}};

struct ZoneText {
  std::string_view text;
  std::string_view suffix;
  SheetZone zone;
};

constexpr std::array<ZoneText, 4> kZones = {{{"North", " - North", SheetZone::North},
                                             {"Central", " - Central", SheetZone::Central},
                                             {"South", " - South", SheetZone::South},
                                             {"North Shore", " - Lake (North Shore)", SheetZone::NorthShore}}};

/// The one county whose zones have a list entry for the county as a whole.
constexpr std::string_view kLake = "Lake";

bool has(const formats::database::SheetScan& scan, SheetZone zone) {
  return scan.zones[static_cast<std::size_t>(zone)];
}

/// The entry of a table that has the text, or null. Turns a text of the list into its choice.
template <typename Table>
auto choose(ChoiceList& list, const Table& table, std::string_view text) -> decltype(table.data()) {
  const auto position = std::ranges::find(list.texts, text);
  if (position != list.texts.end()) list.chosen = static_cast<int>(position - list.texts.begin());
  const auto* const found = std::ranges::find(table, text, [](const auto& entry) { return entry.text; });
  return found == table.end() ? nullptr : found;
}

}  // namespace

void fillDatabaseLists(Selections& selections, const formats::database::SheetScan& scan) {
  run::GeodeticCsvChoice& choice = selections.run.options.geodeticCsv;
  selections.horizontals = selections.verticals = selections.countyZones = {};
  choice.horizontal = choice.vertical = 0;
  choice.zoneSuffix.clear();
  choice.countyName = scan.countyName;
  for (const HorizontalReference& reference : kHorizontals) {
    const bool present = scan.present[static_cast<std::size_t>(reference.code)];
    if (present || reference.code == kReferenceCoordinates) selections.horizontals.texts.push_back(reference.text);
  }
  for (const VerticalReference& reference : kVerticals) {
    if (scan.present[static_cast<std::size_t>(reference.code)]) selections.verticals.texts.push_back(reference.text);
  }
  std::vector<std::string_view>& zones = selections.countyZones.texts;
  if (has(scan, SheetZone::NorthShore) && text::equalsIgnoringCase(scan.countyName, kLake))
    zones.emplace_back("Lake County");
  for (const ZoneText& zone : kZones) {
    if (has(scan, zone.zone)) zones.push_back(zone.text);
  }
  choice.zonesOffered = !zones.empty();
  if (zones.size() == 1) chooseCountyZone(selections, zones.front());
  if (!selections.verticals.texts.empty()) chooseVerticalReference(selections, selections.verticals.texts.front());
}

void chooseHorizontalReference(Selections& selections, std::string_view text) {
  const HorizontalReference* const reference = choose(selections.horizontals, kHorizontals, text);
  if (reference == nullptr) return;
  selections.run.options.geodeticCsv.horizontal = reference->code;
  chooseAdjustment(selections, reference->adjustment);
  pickProjection(selections, Side::Source, reference->projection);
}

void chooseVerticalReference(Selections& selections, std::string_view text) {
  const VerticalReference* const reference = choose(selections.verticals, kVerticals, text);
  if (reference == nullptr) return;
  selections.run.options.geodeticCsv.vertical = reference->code;
  selections.run.verticalDatum = reference->datum;
}

void chooseCountyZone(Selections& selections, std::string_view text) {
  const ZoneText* const zone = choose(selections.countyZones, kZones, text);
  selections.run.options.geodeticCsv.zoneSuffix = zone == nullptr ? std::string_view() : zone->suffix;
}

std::string databaseProjectionLine(const Selections& selections) {
  if (selections.run.options.geodeticCsv.horizontal == 0) return {};
  const std::int16_t code = selections.run.SourceProjectionCode;
  std::string line = "Projection = ";
  text::appendWhole(line, code);
  line += "    (Latitude and Longitude : NAD";
  line += run::isNad27(code) ? "27" : "83";
  return line + ')';
}

std::string databaseFileText(const Selections& selections) {
  std::string text = selections.run.source.fileName;
  const std::size_t count = selections.run.options.geodeticCsv.sheets.size();
  if (count > 1) {
    text += "  (+";
    text::appendWhole(text, static_cast<std::int64_t>(count - 1));
    text += " more)";
  }
  return text;
}

}  // namespace tovak::selection
