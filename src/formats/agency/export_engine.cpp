#include "formats/agency/export_engine.h"

#include <cstddef>

namespace tovak::formats::agency {
namespace {

// Latitude or longitude outside the area served, outside the datum grid.
constexpr std::int16_t kFirstOutOfReach = 7;
constexpr std::int16_t kLastOutOfReach = 9;

}  // namespace

std::string_view FoundZone::name() const {
  const std::size_t blank = filled.find(' ');
  return blank == std::string::npos ? std::string_view() : std::string_view(filled).substr(blank + 1);
}

std::int16_t FoundZone::statePlaneCode() const {
  if (stateLetter() == "N") return run::kStatePlaneNorth;
  return stateLetter() == "C" ? run::kStatePlaneCentral : run::kStatePlaneSouth;
}

void ExportEngine::findCounty(std::string_view county, std::string_view zoneWord, FoundZone& zone) {
  request_ = county;
  request_ += ' ';
  request_ += zoneWord;
  zone.filled.clear();
  zone.code = engine_.GetProjectionFromText(request_, zone.filled);
}

std::int16_t ExportEngine::convert(const Position& from, const std::string& source, const std::string& target,
                                   Position& to) {
  Position in = from;
  double elevation = 0.0;
  return engine_.TovakVert(in.northLat, in.eastLon, elevation, source, to.northLat, to.eastLon, elevation, target,
                           info_);
}

std::string ExportEngine::failureText(std::int16_t errorCode, const char* otherwise) {
  const bool outOfReach = errorCode >= kFirstOutOfReach && errorCode <= kLastOutOfReach;
  return outOfReach ? engine_.ErrorText(errorCode) : otherwise;
}

}  // namespace tovak::formats::agency
