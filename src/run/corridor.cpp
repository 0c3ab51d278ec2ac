#include "run/corridor.h"

#include <cstddef>

#include "run/combination_rules.h"
#include "run/default_numbering.h"
#include "run/identification.h"
#include "run/labels.h"
#include "run/projection_box.h"
#include "run/projection_code.h"
#include "run/run_messages.h"
#include "run/system_data.h"
#include "run/user_project.h"

namespace tovak::run {

Corridor::Corridor(RunSettings& settings, ConversionEngine& engine, const FormatTables& formats, RecordCounts& counts)
    : settings_(settings),
      engine_(engine),
      source_(formats.sources[static_cast<std::size_t>(settings.sourceFormat)]),
      target_(formats.targets[static_cast<std::size_t>(settings.targetFormat)]),
      areas_(formats.areas),
      counts_(counts) {}

std::optional<Message> Corridor::checkChoices() const {
  return source_.missingChoice == nullptr ? std::nullopt : source_.missingChoice(settings_);
}

/// If the project of the data folder cannot be used, the engine says why.
void Corridor::takeProject() {
  settings_.projectDatum.clear();
  if (settings_.SourceProjectionCode != kUserDefinedProject && settings_.TargetProjectionCode != kUserDefinedProject)
    return;
  std::string told;
  const bool taken = giveProject(engine_, settings_.project, told);
  if (settings_.project) {
    settings_.projectDatum = toldDatum(told);
    if (!taken) projectFault_ = told;
    return;
  }
  const text::Result<std::optional<UserProject>> stored = readUserProject(userProjectFile());
  if (stored && *stored) settings_.projectDatum = (*stored)->datum;
}

void Corridor::prepareFormats() {
  takeProject();
  if (source_.forcedForm) settings_.latLongForm = *source_.forcedForm;
  if (source_.forcedUnit) {
    settings_.source.metres = *source_.forcedUnit == LengthUnit::metres;
    settings_.source.projectionText = projectionText(settings_.SourceProjectionCode, settings_.source.metres);
  }
  if (target_.forcedUnit) {
    settings_.target.metres = *target_.forcedUnit == LengthUnit::metres;
    settings_.target.projectionText = projectionText(settings_.TargetProjectionCode, settings_.target.metres);
  }
  if (source_.prepare != nullptr) source_.prepare(settings_);
  if (target_.prepare != nullptr) target_.prepare(settings_);
}

std::optional<Message> Corridor::checkProjections() const {
  if (settings_.SourceProjectionCode == kNoProjection) return messages::unknownSourceProjection();
  if (settings_.TargetProjectionCode == kNoProjection) return messages::unknownTargetProjection();
  if (const Message* const broken = firstBrokenRule(settings_)) return *broken;
  if (target_.kind == TargetKind::AgencyRun) return messages::batchSourceMissing();
  return std::nullopt;
}

/// The engine's reason for refusing to convert into a side's project.
std::string Corridor::refusalOf(const SideSettings& side) {
  double latitude = 0.0;
  double longitude = 0.0;
  double elevation = 0.0;
  std::string info;
  return engine_.ErrorText(engine_.TovakVert(latitude, longitude, elevation, projectionText(kLatLongNad83, false),
                                             latitude, longitude, elevation,
                                             projectionText(kUserDefinedProject, side.metres), info));
}

/// Takes name, text and unit of a user-defined project from the engine.
std::optional<Message> Corridor::takeUserDefinedProject(SideSettings& side) {
  if (!projectFault_.empty()) return messages::projectUnusable(projectFault_);
  const ProjectData project = projectData(engine_);
  side.displayName = project.name;
  side.projectionText = project.projectionText;
  if (project.usable()) {
    side.metres = marksMetres(side.projectionText);
    return std::nullopt;
  }
  if (!project.noneSelected) return messages::projectUnusable(project.name);
  return &side == &settings_.target ? messages::projectUnusable(refusalOf(side)) : Message();
}

std::optional<Message> Corridor::takeProjectionTexts() {
  settings_.source.displayName.clear();
  settings_.target.displayName.clear();
  if (settings_.SourceProjectionCode == kUserDefinedProject) {
    if (std::optional<Message> problem = takeUserDefinedProject(settings_.source)) return problem;
  }
  if (settings_.TargetProjectionCode != kUserDefinedProject) return std::nullopt;
  return takeUserDefinedProject(settings_.target);
}

std::optional<Message> Corridor::openSource(TypedPoints* typedPoints) {
  if (source_.kind == SourceKind::File && !lines_.open(settings_.source.fileName)) {
    return systemMessage(lines_.error());
  }
  reader_ = source_.makeReader(
      {.lines = lines_,
       .settings = settings_,
       .counts = counts_,
       .doubts = doubts_,
       .message = readerMessage_,
       .typedPoints = typedPoints,
       .wantsOtherLines = target_.takesOtherLines,
       .oneCountyZone = target_.oneCountyZone || settings_.TargetProjectionCode >= kFirstNeighbouringZone});
  if (reader_->check()) return std::nullopt;
  const bool faulty = lines_.fault() != text::LineReader::Fault::None;
  return faulty ? systemMessage(lines_.error()) : readerMessage_;
}

AreaLimits Corridor::usualLimits(std::int16_t code, const SideSettings& side, Doubt doubt) {
  const UsualArea* const area = areas_ == nullptr ? nullptr : findUsualArea(*areas_, code);
  if (area == nullptr) return {};
  tallyOf(counts_.doubts, doubt).about = systemName(engine_, code);
  return areaLimits(engine_, *area, side.projectionText);
}

/// Raises a doubt about a file of this program's own whose first line contradicts the run's choices.
void Corridor::compareWithIdentification() {
  if (source_.kind != SourceKind::File) return;
  const std::optional<Identification> file = identificationOf(settings_.source.fileName);
  if (!file || !contradicts(*file, settings_)) return;
  DoubtTally& tally = tallyOf(counts_.doubts, Doubt::OtherSystem);
  addTo(tally, 1);
  tally.about = systemName(engine_, file->code) + (file->metres ? " in metres" : " in U.S. survey feet");
  if (file->adjustment) tally.about += std::string(", ") + std::string(datumLabel(false, *file->adjustment));
}

void Corridor::findDoubts() {
  sourceLimits_ = usualLimits(settings_.SourceProjectionCode, settings_.source, Doubt::OutsideSourceArea);
  // Where both sides have the same system, a point outside its area is reported only once.
  if (settings_.TargetProjectionCode != settings_.SourceProjectionCode) {
    targetLimits_ = usualLimits(settings_.TargetProjectionCode, settings_.target, Doubt::OutsideTargetArea);
  }
  compareWithIdentification();
}

ReadState Corridor::read(PointRecord& point) {
  resetPoint(point);
  doubts_.clear();
  return reader_->read(point);
}

Refusal Corridor::convert(PointRecord& point) {
  if (!settings_.allowBlankPointNumbers && point.pointNumber.empty()) {
    takeDefaultNumber(settings_, point.pointNumber);
  }
  if (!point.refusal.empty()) return {&RecordCounts::refusedAngle, std::string(point.refusal)};
  if (!sourceLimits_.holds(point.InNorthLat, point.InEastLon)) doubts_.raise(Doubt::OutsideSourceArea);
  const std::string_view form = settings_.latLongForm == text::AngleForm::DecimalDegrees ? "D" : "S";
  const std::int16_t ErrorCode = engine_.TovakVert(
      point.InNorthLat, point.InEastLon, point.Elevation, settings_.source.projectionText, point.OutNorthLat,
      point.OutEastLon, point.Elevation, settings_.target.projectionText, point.OutInfo, form);
  if (ErrorCode >= 1) return {&RecordCounts::refusedByEngine, engine_.ErrorText(ErrorCode)};
  if (!targetLimits_.holds(point.OutNorthLat, point.OutEastLon)) doubts_.raise(Doubt::OutsideTargetArea);
  if (target_.wantsSourceInfo && !isLatLong(settings_.SourceProjectionCode)) takeSourceInfo(point);
  return {};
}

/// The engine tells convergence and scale factor of the system that it converts into, so the point goes back once.
void Corridor::takeSourceInfo(PointRecord& point) {
  double northing = 0.0;
  double easting = 0.0;
  double elevation = 0.0;
  if (engine_.TovakVert(point.OutNorthLat, point.OutEastLon, elevation, settings_.target.projectionText, northing,
                        easting, elevation, settings_.source.projectionText, point.sourceInfo) >= 1) {
    point.sourceInfo.clear();
  }
}

std::string_view Corridor::recordFile() const {
  const bool several = source_.fromDatabase && settings_.options.geodeticCsv.sheets.size() > 1;
  return several ? std::string_view(lines_.fileName()) : std::string_view();
}

void Corridor::countConverted(const PointRecord& point) {
  ++counts_.converted;
  if (doubts_.any()) countDoubts(counts_.doubts, doubts_, point.sourceLine, recordFile());
}

void Corridor::countRefused(const PointRecord& point, const Refusal& refusal) {
  if (doubts_.has(Doubt::NotBelow60) && source_.openForm) {
    addTo(tallyOf(counts_.doubts, Doubt::NotBelow60), point.sourceLine, recordFile());
  }
  countSkipped(counts_, counts_.*refusal.tally, point.sourceLine, refusal.reason, recordFile());
}

/// Short packed angles among long ones are what they seem. Only a file with nothing but short ones may really hold
/// decimal degrees.
void Corridor::settleDoubts() {
  DoubtTally& tally = tallyOf(counts_.doubts, Doubt::ShortPacked);
  if (!source_.openForm || tally.count != counts_.converted) tally = {};
}

}  // namespace tovak::run
