#include "engine/wkt.h"

#include <algorithm>
#include <iterator>

#include "text/strings.h"

namespace tovak::engine {
namespace {

constexpr std::string_view kOpening = "[(";
constexpr std::string_view kMethodKeywords[] = {"METHOD", "PROJECTION"};
constexpr std::string_view kOtherKeywords[] = {
    // the system
    "PROJCS", "PROJCRS", "PROJECTEDCRS", "GEOGCS", "GEOGCRS", "GEOGRAPHICCRS", "GEODCRS", "GEODETICCRS", "BASEGEOGCRS",
    "BASEGEODCRS",
    // the datum
    "DATUM", "GEODETICDATUM", "TRF", "ENSEMBLE", "MEMBER", "ENSEMBLEACCURACY", "DYNAMIC", "FRAMEEPOCH", "MODEL",
    "ELLIPSOID", "SPHEROID", "PRIMEM", "PRIMEMERIDIAN", "ANCHOR", "ANCHOREPOCH", "TOWGS84",
    // the projection, axes and units
    "CONVERSION", "PARAMETER", "CS", "AXIS", "MERIDIAN", "BEARING", "ORDER", "AXISMINVALUE", "AXISMAXVALUE",
    "RANGEMEANING", "UNIT", "ANGLEUNIT", "LENGTHUNIT", "SCALEUNIT",
    // remarks
    "AUTHORITY", "ID", "CITATION", "URI", "USAGE", "SCOPE", "AREA", "BBOX", "VERTICALEXTENT", "TIMEEXTENT", "REMARK"};

bool isWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

template <typename Words>
bool isAmong(const Words& words, std::string_view word) {
  return std::ranges::any_of(words, [word](std::string_view other) { return text::equalsIgnoringCase(word, other); });
}

/// The keyword before the bracket at `position`: the text back to the previous comma, bracket or quotation mark.
std::string_view keywordBefore(std::string_view wkt, std::size_t position) {
  const std::string_view before = wkt.substr(0, position);
  const std::size_t end = before.find_last_of(",[]()\"");
  return text::trimBlanks(end == std::string_view::npos ? before : before.substr(end + 1));
}

/// Whether a text begins with the name of PROJ, ignoring blanks and a quotation mark before it.
bool namesProj(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \""), text.size()));
  return text::equalsIgnoringCase(text.substr(0, 4), "PROJ");
}

}  // namespace

bool isWkt(std::string_view text) {
  const std::size_t bracket = text.find('[');
  return bracket != std::string_view::npos && bracket > 0 && text.back() == ']' &&
         std::ranges::all_of(text.substr(0, bracket), isWordCharacter);
}

std::string faultInWkt(std::string_view wkt) {
  // PROJ treats these as quotation marks too.
  if (wkt.find("\u201C") != std::string_view::npos || wkt.find("\u201D") != std::string_view::npos)
    return "it holds typographic quotation marks";
  bool quoted = false;
  for (std::size_t i = 0; i < wkt.size(); ++i) {
    if (wkt[i] == '"') quoted = !quoted;
    if (quoted || kOpening.find(wkt[i]) == std::string_view::npos) continue;
    const std::string_view keyword = keywordBefore(wkt, i);
    const bool isMethod = isAmong(kMethodKeywords, keyword);
    if (!isMethod && !isAmong(kOtherKeywords, keyword))
      return '"' + std::string(keyword) + "\" is no keyword of a projected coordinate system";
    if (isMethod && namesProj(wkt.substr(i + 1))) return "its method is not one of the standard";
  }
  return {};
}

}  // namespace tovak::engine
