#include "selection/selections.h"

#include <cstddef>
#include <utility>

#include "run/format_index.h"
#include "run/projection_code.h"
#include "text/strings.h"

namespace tovak::selection {
namespace {

using run::SourceKind;
using run::TargetKind;
using text::AngleForm;

/// An agency format on one side brings its partner on the other; a source brings the target's unit too.
struct AgencyPair {
  std::int16_t source;
  std::int16_t target;
  bool metres;
};

constexpr AgencyPair kAgencyPairs[] = {
    {run::source::GeodeticsSpecial, run::target::GeodeticsSpecial, true},
    {run::source::KrvBatch, run::target::KrvBatch, false},
    {run::source::LmoBatch, run::target::LmoBatch, false},
};

/// Source formats that settle how latitudes and longitudes are written, whatever the projection.
struct ForcedForm {
  std::int16_t source;
  AngleForm form;
};

constexpr ForcedForm kForcedForms[] = {
    {run::source::Maptech, AngleForm::DecimalDegrees},
    {run::source::WayPointsPlus, AngleForm::DegreesMinutesSeconds},
};

const ForcedForm* forcedForm(std::int16_t sourceFormat) {
  for (const ForcedForm& forced : kForcedForms) {
    if (forced.source == sourceFormat) return &forced;
  }
  return nullptr;
}

run::SideSettings& settingsOf(Selections& selections, Side side) {
  return side == Side::Source ? selections.run.source : selections.run.target;
}

/// Without latitudes and longitudes in the source there is no form of them that could have been chosen.
void refreshLatLongForm(Selections& selections) {
  run::RunSettings& settings = selections.run;
  settings.latLongFormChosen =
      forcedForm(settings.sourceFormat) != nullptr || run::isLatLong(settings.SourceProjectionCode);
}

void setBox(Selections& selections, Side side, const run::ProjectionBox& box) {
  run::RunSettings& settings = selections.run;
  const bool codeChanges = box.code != projectionBox(selections, side).code;
  (side == Side::Source ? settings.SourceProjectionCode : settings.TargetProjectionCode) = box.code;
  run::SideSettings& ofSide = settingsOf(selections, side);
  ofSide.metres = box.metres;
  ofSide.projectionText = run::projectionText(box.code, box.metres);
  if (side == Side::Source && codeChanges) refreshLatLongForm(selections);
}

}  // namespace

bool isAgencyRun(const Selections& selections, const run::FormatTables& formats) {
  return formats.sources[static_cast<std::size_t>(selections.run.sourceFormat)].kind == SourceKind::AgencyRun;
}

FormatOutcome chooseSourceFormat(Selections& selections, const run::FormatTables& formats, std::int16_t format) {
  run::RunSettings& settings = selections.run;
  settings.sourceFormat = format;
  if (const ForcedForm* const forced = forcedForm(format)) settings.latLongForm = forced->form;
  refreshLatLongForm(selections);
  const bool needsFile = formats.sources[static_cast<std::size_t>(format)].kind != SourceKind::Keyboard;
  for (const AgencyPair& pair : kAgencyPairs) {
    if (pair.source != format) continue;
    settings.targetFormat = pair.target;
    chooseUnit(selections, Side::Target, pair.metres);
  }
  return {.askForFile = needsFile && settings.source.fileName.empty()};
}

FormatOutcome chooseTargetFormat(Selections& selections, const run::FormatTables& formats, std::int16_t format) {
  run::RunSettings& settings = selections.run;
  settings.targetFormat = format;
  const run::TargetFormat& card = formats.targets[static_cast<std::size_t>(format)];
  if (card.forcesLatLong) pickProjection(selections, Side::Target, run::kLatLongNad83);
  for (const AgencyPair& pair : kAgencyPairs) {
    if (pair.target != format) continue;
    settings.sourceFormat = pair.source;
    refreshLatLongForm(selections);
  }
  return {.askForFile = card.kind != TargetKind::Screen && settings.target.fileName.empty()};
}

void chooseUnit(Selections& selections, Side side, bool metres) {
  setBox(selections, side, {.code = projectionBox(selections, side).code, .metres = metres});
}

void chooseAdjustment(Selections& selections, run::Adjustment adjustment) {
  selections.run.adjustment = adjustment;
}

void chooseLatLongForm(Selections& selections, AngleForm form) {
  selections.run.latLongForm = form;
  selections.run.latLongFormChosen = true;
}

run::ProjectionBox projectionBox(const Selections& selections, Side side) {
  const run::RunSettings& settings = selections.run;
  return side == Side::Source ? run::ProjectionBox{settings.SourceProjectionCode, settings.source.metres}
                              : run::ProjectionBox{settings.TargetProjectionCode, settings.target.metres};
}

std::string typeProjection(Selections& selections, Side side, std::string_view text) {
  const run::ProjectionBox box = run::typeProjection(projectionBox(selections, side), text);
  setBox(selections, side, box);
  std::string shown(text);
  if (box.metres && text::findIgnoringCase(text, "M") == std::string_view::npos) shown += 'M';
  return shown;
}

void pickProjection(Selections& selections, Side side, std::int16_t code) {
  setBox(selections, side, {.code = code, .metres = projectionBox(selections, side).metres});
}

run::RunSettings runSettings(const Selections& selections, const run::FormatTables& formats) {
  run::RunSettings settings = selections.run;
  settings.BatchMode = 0;
  for (std::string* const name : {&settings.source.fileName, &settings.target.fileName, &settings.reportFileName}) {
    *name = text::trimBlanks(*name);
  }
  const auto source = static_cast<std::size_t>(settings.sourceFormat);
  const auto target = static_cast<std::size_t>(settings.targetFormat);
  if (formats.sources[source].kind == SourceKind::Keyboard) settings.source.fileName.clear();
  if (formats.targets[target].kind == TargetKind::Screen) settings.target.fileName.clear();
  return settings;
}

void takeBack(Selections& selections, const run::RunSettings& after) {
  const run::RunSettings before = std::move(selections.run);
  selections.run = after;
  run::RunSettings& settings = selections.run;
  if (settings.source.fileName.empty()) settings.source.fileName = before.source.fileName;
  if (settings.target.fileName.empty()) settings.target.fileName = before.target.fileName;
  for (const Side side : {Side::Source, Side::Target}) setBox(selections, side, projectionBox(selections, side));
}

Selections selectionsFrom(const run::RunSettings& settings) {
  Selections selections = {.run = settings};
  for (const Side side : {Side::Source, Side::Target}) setBox(selections, side, projectionBox(selections, side));
  refreshLatLongForm(selections);
  return selections;
}

}  // namespace tovak::selection
