#include "engine/project.h"

#include <algorithm>
#include <utility>

#include "engine/definition.h"
#include "engine/geographic.h"
#include "engine/proj_objects.h"
#include "engine/projections.h"
#include "run/projection_code.h"
#include "text/angle.h"
#include "text/number.h"

namespace tovak::engine {
namespace {

bool isServed(double latitude, double longitude) {
  return latitude >= kAreaServed.south && latitude <= kAreaServed.north && longitude >= kAreaServed.west &&
         longitude <= kAreaServed.east;
}

/// "northing N, easting E m: latitude ..., longitude ..., inside the area served".
std::string whereabouts(PJconsts* projection, const PlanePoint& point, run::LengthUnit unit) {
  constexpr int kDecimals = 3;
  const auto length = [&](double metres) { return run::convertLength(metres, run::LengthUnit::metres, unit); };
  std::string text = "northing ";
  text::appendFixed(text, length(point.northing), kDecimals);
  text += ", easting ";
  text::appendFixed(text, length(point.easting), kDecimals);
  text += unit == run::LengthUnit::metres ? " m: " : " ft: ";
  const Geographic place = unproject(projection, point);
  if (!isFinite(place)) return text + "nowhere on the earth";
  const double latitude = place.latitude * kDegreesPerRadian;
  const double longitude = place.longitude * kDegreesPerRadian;
  text += "latitude ";
  text::appendSpacedAngle(text, latitude);
  text += ", longitude ";
  text::appendSpacedAngle(text, longitude);
  return text + (isServed(latitude, longitude) ? ", inside" : ", outside") + " the area served";
}

std::string withoutTildes(std::string text) {
  std::ranges::replace(text, '~', '-');
  return text;
}

}  // namespace

ProjectResult loadProject(pj_ctx* context) {
  const std::string file = run::userProjectFile();
  const text::Result<std::optional<run::UserProject>> read = run::readUserProject(file);
  if (!read || !*read) return {std::nullopt, withoutTildes(read.error)};
  return makeProject(context, **read, file);
}

ProjectResult makeProject(pj_ctx* context, const run::UserProject& stored, const std::string& from) {
  text::Result<Parameters> definition = readDefinition(context, stored.definition, std::nullopt);
  if (!definition) {
    return {std::nullopt, withoutTildes(from + ": the definition cannot be used: " + definition.error)};
  }
  const Datum datum = definition->datum;
  if (!stored.datum.empty() && stored.datum != nameOf(datum)) {
    return {std::nullopt, withoutTildes(from + ": the definition is on " + std::string(nameOf(datum)))};
  }
  if (definition->feet && stored.metres) {
    return {std::nullopt, withoutTildes(from + ": the definition is in U.S. survey feet")};
  }
  const std::string name = "User-defined project " + stored.name + ", ";
  return {Project{.name = stored.name,
                  .unit = run::unitOf(stored.metres),
                  .system = {.code = run::kUserDefinedProject,
                             .name = name + std::string(nameOf(datum)),
                             .datum = datum,
                             .kind = SystemKind::project,
                             .projection = std::move(definition->list)}},
          {}};
}

ProjectCheck checkProject(pj_ctx* context, std::string_view definition, run::LengthUnit unit) {
  if (definition.size() > run::kLongestDefinition) return {false, "The definition is longer than 8192 characters."};
  const text::Result<Parameters> read = readDefinition(context, definition, std::nullopt);
  if (!read) return {false, "The definition cannot be used: " + read.error + '.'};
  const ProjOperation projection = makeOperation(context, read->list.c_str());
  const FalseOrigin origin = falseOrigin(read->list);
  std::string text(run::kToldDatum);
  text += nameOf(read->datum);
  if (read->feet) {
    unit = run::LengthUnit::usSurveyFeet;
    (text += '\n') += run::kToldFeet;
  }
  text += "\nFalse origin, " +
          whereabouts(projection.get(), {.northing = origin.northing, .easting = origin.easting}, unit);
  text += "\nZero point, " + whereabouts(projection.get(), {}, unit);
  return {.usable = true, .text = std::move(text)};
}

}  // namespace tovak::engine
