#include "engine/definition.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include <proj.h>

#include "engine/geographic.h"
#include "engine/proj_objects.h"
#include "engine/projections.h"
#include "engine/wkt.h"
#include "text/strings.h"

namespace tovak::engine {
namespace {

constexpr Geographic kMiddle = {.latitude = (kAreaServed.south + kAreaServed.north) / 2.0 * kRadiansPerDegree,
                                .longitude = (kAreaServed.west + kAreaServed.east) / 2.0 * kRadiansPerDegree};

bool isCodeCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '.';
}

bool isAuthorityAndCode(std::string_view definition) {
  const std::size_t colon = definition.find(':');
  if (colon == std::string_view::npos || colon == 0 || colon + 1 == definition.size()) return false;
  return std::ranges::all_of(definition.substr(0, colon), isCodeCharacter) &&
         std::ranges::all_of(definition.substr(colon + 1), isCodeCharacter);
}

/// The unit that a system's coordinates are converted to behind the projection: the name of PROJ's.
std::string_view unitAfter(std::string_view step) {
  constexpr std::string_view kFromMetres = "+proj=unitconvert +xy_in=m +xy_out=";
  return step.starts_with(kFromMetres) ? step.substr(kFromMetres.size()) : std::string_view();
}

/// The one map projection among the steps from latitude and longitude to northing and easting. Before it, PROJ orders
/// the angles and turns them into radians, and after it, it may order the axes and turn metres into U.S. survey feet
/// (then "+units=us-ft" is added); any other step would be lost.
std::string projectionStep(std::string_view pipeline, std::string& reason) {
  constexpr std::string_view kStep = "+step ";
  std::string projection;
  bool feet = false;
  pipeline.remove_prefix(std::min(pipeline.find(kStep), pipeline.size()));
  while (!pipeline.empty()) {
    pipeline.remove_prefix(kStep.size());
    const std::string_view step = text::trimBlanks(pipeline.substr(0, pipeline.find(kStep)));
    pipeline.remove_prefix(std::min(pipeline.find(kStep), pipeline.size()));
    const bool unit = step.starts_with("+proj=unitconvert ");
    if (step == "+proj=axisswap +order=2,1" || (unit && projection.empty())) continue;
    if (unit && unitAfter(step) == "us-ft" && !feet) {
      feet = true;
      continue;
    }
    if (unit) {
      reason = "its unit is " + refusedUnit(unitAfter(step));
    } else if (!projection.empty() || !step.starts_with("+proj=")) {
      reason = "it is more than a map projection from the meridian of Greenwich";
    }
    if (!reason.empty()) return {};
    projection = step;
  }
  if (projection.empty()) reason = "PROJ has no map projection for it";
  return feet ? projection + " +units=us-ft" : projection;
}

/// PROJ's parameters for a system of its database or in WKT.
std::string parametersOfSystem(pj_ctx* context, const std::string& definition, std::string& reason) {
  openProjDatabase(context);
  const ProjOperation system = makeOperation(context, definition.c_str());
  if (system == nullptr) {
    reason = "PROJ does not know it or cannot read it";
    return {};
  }
  const PJ_TYPE type = proj_get_type(system.get());
  if (type != PJ_TYPE_PROJECTED_CRS) {
    reason = type == PJ_TYPE_BOUND_CRS ? "it has a datum shift of its own" : "it is not a projected coordinate system";
    return {};
  }
  const ProjOperation conversion(proj_crs_get_coordoperation(context, system.get()));
  const char* const text =
      conversion == nullptr ? nullptr : proj_as_proj_string(context, conversion.get(), PJ_PROJ_5, nullptr);
  return projectionStep(text == nullptr ? "" : text, reason);
}

/// How far `to` lies from `from` along both axes, as a fraction of `length`.
PlanePoint partsOf(double length, const PlanePoint& from, const PlanePoint& to) {
  return {.northing = (to.northing - from.northing) / length, .easting = (to.easting - from.easting) / length};
}

bool isUnit(double along, double across) {
  const double scale = std::hypot(along, across);
  return along > std::fabs(across) && scale > 0.5 && scale < 2.0;
}

bool fitsAreaServed(PJconsts* projection) {
  constexpr double kEarthRadius = 6'370'000.0;
  constexpr double kStep = 1e-5;  // radians, some 64 m
  constexpr double kClosure = 1e-8;
  const PlanePoint middle = project(projection, kMiddle);
  const PlanePoint north =
      partsOf(kStep * kEarthRadius, middle,
              project(projection, {.latitude = kMiddle.latitude + kStep, .longitude = kMiddle.longitude}));
  const PlanePoint east =
      partsOf(kStep * kEarthRadius * std::cos(kMiddle.latitude), middle,
              project(projection, {.latitude = kMiddle.latitude, .longitude = kMiddle.longitude + kStep}));
  if (!isUnit(north.northing, north.easting) || !isUnit(east.easting, east.northing)) return false;
  const Geographic back = unproject(projection, middle);
  return std::fabs(back.latitude - kMiddle.latitude) < kClosure &&
         std::fabs(back.longitude - kMiddle.longitude) < kClosure;
}

}  // namespace

text::Result<Parameters> readDefinition(pj_ctx* context, std::string_view definition, std::optional<Datum> expected) {
  using Read = text::Result<Parameters>;
  definition = text::trimBlanks(definition);
  std::string list;
  std::string reason;
  if (definition.starts_with('+') || definition.starts_with("proj=")) {
    list = definition;
  } else if (isAuthorityAndCode(definition) || isWkt(definition)) {
    if (isWkt(definition)) reason = faultInWkt(definition);
    if (reason.empty()) list = parametersOfSystem(context, std::string(definition), reason);
  } else {
    reason = "it is neither PROJ parameters (+proj=...) nor AUTHORITY:CODE nor WKT";
  }
  if (!reason.empty()) return Read::failure(reason);

  Read read = readParameters(list, expected);
  if (!read) return read;
  const ProjOperation projection = makeOperation(context, read->list.c_str());
  if (projection == nullptr) return Read::failure("PROJ cannot make a projection of it");
  if (fitsAreaServed(projection.get())) return read;
  return Read::failure("it is no map projection in metres, northing and easting, that fits the area served");
}

}  // namespace tovak::engine
