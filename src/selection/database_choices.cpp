#include "selection/database_choices.h"

#include <array>
#include <cstdint>

#include "run/projection_code.h"
#include "text/number.h"

namespace tovak::selection {
namespace {

using run::Adjustment;

struct HorizontalReference {
  std::int16_t code;
  Adjustment adjustment;
  std::int16_t projection;
};

constexpr std::array<std::string_view, 6> kHorizontalTexts = {
    "NAD83(2011) ADJ.", "NAD83(2007) ADJ.", "NAD83(1996) ADJ.", "NAD83(1986) ADJ.", "NAD27", "Reference Coords."};
constexpr std::array<HorizontalReference, 6> kHorizontals = {{
    {1, Adjustment::Nad83_2011, run::kLatLongNad83},
    {3, Adjustment::Nad83_2007, run::kLatLongNad83},
    {5, Adjustment::Nad83_1996, run::kLatLongNad83},
    {7, Adjustment::Nad83_1986, run::kLatLongNad83},
    {9, Adjustment::None, run::kLatLongNad27},
    {11, Adjustment::None, run::kLatLongNad83},
}};

constexpr std::array<std::string_view, 2> kVerticalTexts = {"NAVD88", "NGVD29"};
constexpr std::int16_t kFirstVertical = 13;

struct CountyZone {
  std::string_view text;
  std::string_view suffix;
};

constexpr std::array<CountyZone, 4> kZones = {{{"North", " - North"},
                                               {"Central", " - Central"},
                                               {"South", " - South"},
                                               {"North Shore", " - Lake (North Shore)"}}};

}  // namespace

std::span<const std::string_view> horizontalReferences() {
  return kHorizontalTexts;
}

std::span<const std::string_view> verticalReferences() {
  return kVerticalTexts;
}

void chooseHorizontalReference(Selections& selections, std::string_view text) {
  for (std::size_t i = 0; i < kHorizontals.size(); ++i) {
    if (kHorizontalTexts[i] != text) continue;
    selections.databaseHorizontal = kHorizontals[i].code;
    chooseAdjustment(selections, kHorizontals[i].adjustment);
    pickProjection(selections, Side::Source, kHorizontals[i].projection);
  }
}

void chooseVerticalReference(Selections& selections, std::string_view text) {
  for (std::size_t i = 0; i < kVerticalTexts.size(); ++i) {
    if (kVerticalTexts[i] == text) selections.databaseVertical = static_cast<std::int16_t>(kFirstVertical + i);
  }
}

void chooseCountyZone(Selections& selections, std::string_view text) {
  std::string& suffix = selections.run.geodeticCsv.zoneSuffix;
  suffix.clear();
  for (const CountyZone& zone : kZones) {
    if (zone.text == text) suffix = zone.suffix;
  }
}

std::string databaseProjectionLine(const Selections& selections) {
  const std::int16_t code = selections.run.SourceProjectionCode;
  std::string line = "Projection = ";
  text::appendWhole(line, code);
  line += "    (Latitude and Longitude : NAD";
  line += run::isNad27(code) ? "27" : "83";
  return line + ')';
}

std::string databaseFileText(const std::vector<std::string>& files) {
  if (files.empty()) return {};
  std::string text = files.front();
  if (files.size() > 1) {
    text += "  (+";
    text::appendWhole(text, static_cast<std::int64_t>(files.size() - 1));
    text += " more)";
  }
  return text;
}

}  // namespace tovak::selection
