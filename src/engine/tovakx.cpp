#include "engine/tovakx.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <optional>
#include <utility>

#include "run/projection_box.h"
#include "run/projection_code.h"
#include "text/angle.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::engine {
namespace {

constexpr double kVersion = 103.0;
constexpr std::int16_t kAskForProject = -run::kUserDefinedProject;

/// The target's name as it ends a result text.
std::string nameInResult(const CoordinateSystem& system, const char* angles) {
  std::string text(1, ' ');
  text += system.name;
  if (system.kind == SystemKind::latLong) text += angles;
  return text;
}

void appendFactors(std::string& out, const std::optional<GridFactors>& factors) {
  constexpr int kScaleDecimals = 9;
  if (!factors) {
    out += "0-00-00.00 1";
    return;
  }
  text::appendDashedAngle(out, factors->convergence);
  out += ' ';
  text::appendFixed(out, factors->scale, kScaleDecimals);
}

}  // namespace

std::unique_ptr<TovakX> TovakX::create(std::string& reason) {
  ProjContext context = openProj(reason);
  if (context.get() == nullptr) return nullptr;
  std::unique_ptr<TovakX> engine(new TovakX(std::move(context)));
  engine->knownGrids_ = readKnownGrids(gridListFile(), reason);
  return reason.empty() && engine->readCounties(reason) ? std::move(engine) : nullptr;
}

TovakX::TovakX(ProjContext context) : context_(std::move(context)), systems_(builtInSystems()) {}

bool TovakX::readCounties(std::string& reason) {
  const std::string file = countyFile();
  text::Result<std::vector<CatalogueZone>> zones = readCountyZones(file);
  if (!zones) {
    reason = zones.error;
    return false;
  }
  zones_ = std::move(*zones);
  text::Result<std::vector<CoordinateSystem>> systems = countySystems(context_.get(), file, zones_);
  if (!systems) {
    reason = systems.error;
    return false;
  }
  std::ranges::move(*systems, std::back_inserter(systems_));
  return true;
}

/// The project may have been changed since the last run; everything prepared for the old one is dropped.
void TovakX::readProject() {
  ProjectResult now =
      givenProject_ ? makeProject(context_.get(), *givenProject_, "The job's project") : loadProject(context_.get());
  if (projectRead_ && now == project_) return;
  project_ = std::move(now);
  projectRead_ = true;
  pairs_ = {};
}

/// The lines are definition, name and datum, all of them empty for no project.
void TovakX::takeGivenProject(std::string_view lines, run::LengthUnit unit) {
  const std::string_view definition = text::takeField(lines, '\n');
  const std::string_view name = text::takeField(lines, '\n');
  givenProject_.reset();
  if (definition.empty()) return;
  givenProject_ = {.name = std::string(name),
                   .definition = std::string(definition),
                   .metres = unit == run::LengthUnit::metres,
                   .datum = std::string(lines)};
}

const CoordinateSystem* TovakX::find(std::int16_t code) {
  if (code != run::kUserDefinedProject) return findSystem(systems_, code);
  if (!projectRead_) readProject();
  return project_.project ? &project_.project->system : nullptr;
}

double TovakX::GetVersion() {
  return kVersion;
}

std::int16_t TovakX::TovakVert(double& InNorthLat, double& InEastLon, double& Elevation,
                               const std::string& SourceProjection, double& OutNorthLat, double& OutEastLon,
                               double& ElevationOut, const std::string& TargetProjection, std::string& OutInfo,
                               std::string_view LatLongForm) {
  try {
    const Prepared& prepared = pairFor(SourceProjection, TargetProjection);
    if (prepared.error != Error::none) return static_cast<std::int16_t>(prepared.error);

    Point point{.northing = InNorthLat, .easting = InEastLon, .elevation = Elevation};
    std::optional<GridFactors> factors;
    const Error error = convertPoint(prepared.pair, point, resultTextsWanted_ ? &factors : nullptr);
    if (error != Error::none) return static_cast<std::int16_t>(error);

    OutInfo.clear();
    if (resultTextsWanted_) {
      appendFactors(OutInfo, factors);
      OutInfo += LatLongForm == "D" ? prepared.nameForDecimal : prepared.name;
    }
    OutNorthLat = point.northing;
    OutEastLon = point.easting;
    ElevationOut = point.elevation;
    return 0;
  } catch (const std::exception&) {
    return static_cast<std::int16_t>(Error::notComputed);
  }
}

std::string TovakX::ErrorText(std::int16_t code) {
  const bool gridFault = code == static_cast<std::int16_t>(Error::noGrid) && !shift_.fault().empty();
  return gridFault ? shift_.fault() : errorText(code);
}

std::string TovakX::GetProjectionData(std::int16_t code) {
  if (code == kAskForProject || code == run::kUserDefinedProject) return projectData(code == kAskForProject);
  const CoordinateSystem* system = find(code);
  return system == nullptr ? std::string() : system->name + '~' + run::projectionText(code, false);
}

/// The project's plain name is for conversions; lists of systems show the longer one.
std::string TovakX::projectData(bool bareName) {
  readProject();
  const std::optional<Project>& project = project_.project;
  const bool metres = project && project->unit == run::LengthUnit::metres;
  const std::string text = '~' + run::projectionText(run::kUserDefinedProject, metres);
  if (project) return (bareName ? project->name : project->system.name) + text;
  if (!project_.fault.empty())
    return bareName ? project_.fault : "User-defined project (its file cannot be used)" + text;
  return bareName ? "None Selected" : "User-defined project (none selected)" + text;
}

std::int16_t TovakX::GetProjectionFromText(const std::string& text, std::string& filled) {
  for (const run::LengthUnit unit : {run::LengthUnit::metres, run::LengthUnit::usSurveyFeet}) {
    const std::string candidate = run::projectionText(run::kUserDefinedProject, unit == run::LengthUnit::metres) + '\n';
    if (!text.starts_with(candidate)) continue;
    std::string_view definition = std::string_view(text).substr(candidate.size());
    if (const std::size_t end = definition.find('\n'); end != std::string_view::npos) {
      takeGivenProject(definition, unit);
      readProject();
      definition = definition.substr(0, end);
    }
    ProjectCheck check = checkProject(context_.get(), definition, unit);
    filled = std::move(check.text);
    return check.usable ? run::kUserDefinedProject : run::kUnknownCounty;
  }
  filled.clear();
  const CatalogueZone* const zone = findZone(zones_, text);
  if (zone == nullptr) return run::kUnknownCounty;
  filled += zone->statePlane;
  if (!zone->text.empty()) filled += ' ' + zone->text;
  return zone->code;
}

/// What could not be prepared is tried anew when its turn comes again: a grid may have been put in its place.
const TovakX::Prepared& TovakX::pairFor(const std::string& sourceText, const std::string& targetText) {
  if (pairs_[current_].isFor(sourceText, targetText)) return pairs_[current_];
  if (pairs_[current_].error == Error::none) current_ = 1 - current_;
  Prepared& pair = pairs_[current_];
  if (pair.error != Error::none || !pair.isFor(sourceText, targetText)) pair = prepare(sourceText, targetText);
  return pair;
}

TovakX::Prepared TovakX::prepare(const std::string& sourceText, const std::string& targetText) {
  Prepared next;
  next.sourceText = sourceText;
  next.targetText = targetText;
  next.error = preparePair(sourceText, targetText, next.pair);
  if (next.error != Error::none) return next;
  next.name = nameInResult(*next.pair.target.system, " (degrees, minutes, seconds)");
  next.nameForDecimal = nameInResult(*next.pair.target.system, " (decimal degrees)");
  return next;
}

Error TovakX::preparePair(std::string_view sourceText, std::string_view targetText, ConversionPair& pair) {
  const std::optional<ProjectionText> source = readProjectionText(sourceText);
  const std::optional<ProjectionText> target = readProjectionText(targetText);
  if (!source || !target) return Error::unreadableText;

  Error error = prepareSide(*source, Error::unknownSource, pair.source);
  if (error == Error::none) error = prepareSide(*target, Error::unknownTarget, pair.target);
  if (error != Error::none) return error;
  findShortcut(pair);

  if (pair.source.system->datum == pair.target.system->datum) return Error::none;
  if (!shift_.open(context_, knownGrids_)) return Error::noGrid;
  pair.shift = &shift_;
  return Error::none;
}

Error TovakX::prepareSide(const ProjectionText& text, Error unknown, Side& side) {
  side.system = find(text.code);
  if (side.system == nullptr) return text.code == run::kUserDefinedProject ? Error::noProject : unknown;
  side.unit = text.unit;
  if (side.system->kind == SystemKind::latLong) return Error::none;
  side.projection = projections_.find(context_.get(), *side.system);
  return side.projection == nullptr ? Error::notComputed : Error::none;
}

}  // namespace tovak::engine
