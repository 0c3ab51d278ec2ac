#include "formats/agency/lmo_system_code.h"

#include "run/projection_code.h"
#include "text/strings.h"

namespace tovak::formats::agency {
namespace {

struct ZonePart {
  std::string_view part;
  std::string_view word;
};

struct SystemPart {
  std::string_view part;
  std::int16_t code;
};

// Both in order of precedence.
constexpr ZonePart kZoneParts[] = {{"CCN", "North"}, {"CCC", "Central"}, {"CCS", "South"}, {"CCL", "North Shore"}};
constexpr SystemPart kSystemParts[] = {{"LL", run::kLatLongNad83},
                                       {"UTM", run::kUtmNad83},
                                       {"SPN", run::kStatePlaneNorth},
                                       {"SPC", run::kStatePlaneCentral},
                                       {"SPS", run::kStatePlaneSouth}};

bool contains(std::string_view text, std::string_view part) {
  return text::findIgnoringCase(text, part) != std::string_view::npos;
}

std::string_view zoneWord(std::string_view text) {
  for (const ZonePart& zone : kZoneParts) {
    if (contains(text, zone.part)) return zone.word;
  }
  return {};
}

std::int16_t systemCode(std::string_view text, bool namesCounty) {
  for (const SystemPart& system : kSystemParts) {
    if (!contains(text, system.part)) continue;
    const bool nad27 = contains(text, "27");
    return nad27 ? static_cast<std::int16_t>(system.code + run::kTwinDistance) : system.code;
  }
  return text.empty() || namesCounty ? kCountySystem : kDatumMissing;
}

}  // namespace

LmoSystem readLmoSystem(std::string_view text) {
  LmoSystem system;
  system.metres = !text.empty() && text::upperCase(text.front()) == 'M';
  system.zoneWord = zoneWord(text);
  system.namesCounty = contains(text, "CC");
  system.code = systemCode(text, system.namesCounty);
  return system;
}

}  // namespace tovak::formats::agency
