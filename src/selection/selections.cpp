#include "selection/selections.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <span>
#include <system_error>
#include <utility>

#include "run/projection_code.h"
#include "text/native_path.h"
#include "text/strings.h"

namespace tovak::selection {
namespace {

using run::SourceKind;
using run::TargetKind;
using text::AngleForm;

template <typename Format, typename Condition>
std::int16_t indexOf(std::span<const Format> formats, Condition holds) {
  return static_cast<std::int16_t>(std::ranges::find_if(formats, holds) - formats.begin());
}

run::SideSettings& settingsOf(Selections& selections, Side side) {
  return side == Side::Source ? selections.run.source : selections.run.target;
}

/// Without latitudes and longitudes in the source, no form of them can have been chosen.
void refreshLatLongForm(Selections& selections) {
  run::RunSettings& settings = selections.run;
  settings.latLongFormChosen = selections.formIsForced || run::isLatLong(settings.SourceProjectionCode);
}

/// The database fixes the form too, but only for its own rows: the choice returns with the next format.
void takeForcedForm(Selections& selections, const run::SourceFormat& card) {
  selections.formIsForced = card.forcedForm && !card.fromDatabase;
  if (selections.formIsForced) selections.run.latLongForm = *card.forcedForm;
  refreshLatLongForm(selections);
}

void setBox(Selections& selections, Side side, const run::ProjectionBox& box) {
  run::RunSettings& settings = selections.run;
  const bool codeChanges = box.code != projectionBox(selections, side).code;
  (side == Side::Source ? settings.SourceProjectionCode : settings.TargetProjectionCode) = box.code;
  run::SideSettings& ofSide = settingsOf(selections, side);
  ofSide.metres = box.metres;
  if (box.code != run::kNoProjection) ofSide.projectionText = run::projectionText(box.code, box.metres);
  if (side == Side::Source && codeChanges) refreshLatLongForm(selections);
}

}  // namespace

bool isAgencyRun(const Selections& selections, const run::FormatTables& formats) {
  return formats.sources[static_cast<std::size_t>(selections.run.sourceFormat)].kind == SourceKind::AgencyRun;
}

FormatOutcome chooseSourceFormat(Selections& selections, const run::FormatTables& formats, std::int16_t format) {
  run::RunSettings& settings = selections.run;
  settings.sourceFormat = format;
  const run::SourceFormat& card = formats.sources[static_cast<std::size_t>(format)];
  takeForcedForm(selections, card);
  if (card.partner) {
    settings.targetFormat = card.partner->format;
    chooseUnit(selections, Side::Target, card.partner->metres);
  }
  return {.askForFile = card.kind != SourceKind::Keyboard && settings.source.fileName.empty()};
}

FormatOutcome chooseTargetFormat(Selections& selections, const run::FormatTables& formats, std::int16_t format) {
  run::RunSettings& settings = selections.run;
  settings.targetFormat = format;
  const run::TargetFormat& card = formats.targets[static_cast<std::size_t>(format)];
  if (card.forcesLatLong) pickProjection(selections, Side::Target, run::kLatLongNad83);
  takeForcedUnit(selections, formats);
  if (card.partner) {
    settings.sourceFormat = card.partner->format;
    takeForcedForm(selections, formats.sources[static_cast<std::size_t>(settings.sourceFormat)]);
    chooseUnit(selections, Side::Target, card.partner->metres);
  }
  return {.askForFile = card.kind != TargetKind::Screen && settings.target.fileName.empty()};
}

void takeForcedUnit(Selections& selections, const run::FormatTables& formats) {
  const run::TargetFormat& card = formats.targets[static_cast<std::size_t>(selections.run.targetFormat)];
  if (card.forcedUnit) chooseUnit(selections, Side::Target, *card.forcedUnit == run::LengthUnit::metres);
}

void beginDatabase(Selections& selections, const run::FormatTables& formats) {
  selections.run.sourceFormat =
      indexOf(formats.sources, [](const run::SourceFormat& card) { return card.fromDatabase; });
}

void leaveForKeyboard(Selections& selections, const run::FormatTables& formats) {
  const auto isKeyboard = [](const run::SourceFormat& card) { return card.kind == SourceKind::Keyboard; };
  chooseSourceFormat(selections, formats, indexOf(formats.sources, isKeyboard));
}

bool usesDatabase(const Selections& selections, const run::FormatTables& formats) {
  return formats.sources[static_cast<std::size_t>(selections.run.sourceFormat)].fromDatabase;
}

void nameFile(Selections& selections, Side side, std::string name) {
  settingsOf(selections, side).fileName = std::move(name);
}

const std::string& fileName(const Selections& selections, Side side) {
  return (side == Side::Source ? selections.run.source : selections.run.target).fileName;
}

void chooseLayout(Selections& selections, Side side, const run::DelimitedFormat& layout) {
  (side == Side::Source ? selections.run.sourceDelimited : selections.run.targetDelimited) = layout;
}

const run::DelimitedFormat& layoutOf(const Selections& selections, Side side) {
  return side == Side::Source ? selections.run.sourceDelimited : selections.run.targetDelimited;
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

void chooseVerticalDatum(Selections& selections, run::VerticalDatum datum) {
  selections.run.verticalDatum = datum;
}

void chooseAccuracy(Selections& selections, text::Accuracy accuracy) {
  selections.run.accuracy = accuracy;
}

void allowBlankNumbers(Selections& selections, bool allowed) {
  selections.run.allowBlankPointNumbers = allowed;
}

void suppressReport(Selections& selections, bool suppressed) {
  selections.run.reportEnabled = !suppressed;
}

void appendReport(Selections& selections, bool append) {
  selections.run.appendReport = append;
}

void printReport(Selections& selections, bool print) {
  selections.run.printReport = print;
}

void nameReport(Selections& selections, std::string fileName) {
  selections.run.reportFileName = std::move(fileName);
}

void describeReport(Selections& selections, std::string description) {
  selections.run.reportDescription = std::move(description);
}

run::ProjectionBox projectionBox(const Selections& selections, Side side) {
  const run::RunSettings& settings = selections.run;
  return side == Side::Source ? run::ProjectionBox{settings.SourceProjectionCode, settings.source.metres}
                              : run::ProjectionBox{settings.TargetProjectionCode, settings.target.metres};
}

std::string typeProjection(Selections& selections, Side side, std::string_view text, bool overNumber) {
  const run::ProjectionBox box = run::typeProjection(projectionBox(selections, side), text, overNumber);
  setBox(selections, side, box);
  std::string shown(text);
  if (box.metres && text::findIgnoringCase(text, "M") == std::string_view::npos) shown += 'M';
  // Unreadable text stays in the box as it was typed.
  if (box.code == run::kNoProjection) settingsOf(selections, side).projectionText = shown;
  return shown;
}

void pickProjection(Selections& selections, Side side, std::int16_t code) {
  setBox(selections, side, {.code = code, .metres = projectionBox(selections, side).metres});
}

run::RunSettings runSettings(const Selections& selections, const run::FormatTables& formats) {
  run::RunSettings settings = selections.run;
  settings.BatchMode = 0;
  for (std::string* const name : {&settings.source.fileName, &settings.target.fileName, &settings.reportFileName}) {
    // Blanks may be typing slips, but a file may have them in its name.
    std::error_code unknown;
    if (!std::filesystem::exists(text::pathOf(*name), unknown)) *name = std::string(text::trimBlanks(*name));
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
  settings.source.projectionText = before.source.projectionText;
  settings.target.projectionText = before.target.projectionText;
  for (const Side side : {Side::Source, Side::Target}) setBox(selections, side, projectionBox(selections, side));
}

Selections selectionsFrom(const run::RunSettings& settings, const run::FormatTables& formats) {
  Selections selections = {.run = settings};
  for (const Side side : {Side::Source, Side::Target}) setBox(selections, side, projectionBox(selections, side));
  takeForcedForm(selections, formats.sources[static_cast<std::size_t>(settings.sourceFormat)]);
  return selections;
}

}  // namespace tovak::selection
