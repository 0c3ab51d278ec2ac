#include "selection/job_use.h"

#include <string>
#include <utility>

#include "formats/database/sheet_scan.h"
#include "run/projection_code.h"
#include "run/run_messages.h"
#include "run/system_data.h"
#include "run/user_project.h"
#include "selection/database_choices.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::selection {
namespace {

constexpr const char* kTitle = "Job";

/// The user-defined project has names of its own, which stand beside its definition.
std::string nameForJob(run::ConversionEngine& engine, std::int16_t code) {
  const bool named = code != run::kNoProjection && code != run::kUserDefinedProject;
  return named ? std::string(text::trimBlanks(run::systemName(engine, code))) : std::string();
}

std::string difference(run::ConversionEngine& engine, std::int16_t code, const std::string& ofJob) {
  if (ofJob.empty() || code == run::kUserDefinedProject) return {};
  const std::string here(text::trimBlanks(run::systemName(engine, code)));
  if (here == ofJob) return {};
  std::string text = "Projection ";
  text::appendWhole(text, code);
  return text + " is \"" + here + "\" here, and \"" + ofJob + "\" in the job.";
}

run::Message missing(const std::string& what) {
  return {.text = "The map sheets do not have what the job takes from them: " + what + '.',
          .title = kTitle,
          .icon = run::Icon::Exclamation};
}

/// Chooses the entry of the list after which the choice is the wanted one. Where the job names none, what the list
/// comes with stays.
template <typename Value>
bool chooseAgain(Selections& selections, const ChoiceList& list, void (*choose)(Selections&, std::string_view),
                 const Value& now, const Value& wanted) {
  if (wanted == Value()) return true;
  for (const std::string_view text : list.texts) {
    if (now == wanted) return true;
    choose(selections, text);
  }
  return now == wanted;
}

}  // namespace

text::Result<Job> jobOf(run::RunSettings settings, run::ConversionEngine& engine) {
  const bool project = settings.SourceProjectionCode == run::kUserDefinedProject ||
                       settings.TargetProjectionCode == run::kUserDefinedProject;
  if (project && !settings.project) {
    text::Result<std::optional<run::UserProject>> stored = run::readUserProject(run::userProjectFile());
    if (!stored) return text::Result<Job>::failure(stored.error);
    if (!*stored) return text::Result<Job>::failure("There is no user-defined project to keep in the job.");
    settings.project = std::move(**stored);
  }
  if (!project) settings.project.reset();
  return Job{.settings = settings,
             .sourceSystem = nameForJob(engine, settings.SourceProjectionCode),
             .targetSystem = nameForJob(engine, settings.TargetProjectionCode)};
}

std::optional<run::Message> otherSystem(const Job& job, run::ConversionEngine& engine) {
  const run::RunSettings& settings = job.settings;
  std::string text = difference(engine, settings.SourceProjectionCode, job.sourceSystem);
  if (text.empty()) text = difference(engine, settings.TargetProjectionCode, job.targetSystem);
  if (text.empty()) return std::nullopt;
  return run::Message{
      .text = text + "\nChoose it again, and save the job.", .title = kTitle, .icon = run::Icon::Exclamation};
}

std::optional<run::Message> resumeDatabase(Selections& selections, const run::FormatTables& formats) {
  if (!usesDatabase(selections, formats)) return std::nullopt;
  const run::RunSettings wanted = selections.run;
  const run::GeodeticCsvChoice& of = wanted.options.geodeticCsv;
  run::GeodeticCsvChoice& choice = selections.run.options.geodeticCsv;
  if (choice.sheets.empty()) choice.sheets = {wanted.source.fileName};
  const formats::database::SheetScan scan = formats::database::scanSheets(choice.sheets);
  if (!scan.error.empty()) return run::systemMessage(scan.error);
  fillDatabaseLists(selections, scan);
  if (!of.countyName.empty() && !text::equalsIgnoringCase(of.countyName, scan.countyName))
    return missing("points of " + of.countyName + " County");
  if (!chooseAgain(selections, selections.horizontals, chooseHorizontalReference, choice.horizontal, of.horizontal))
    return missing("the data set");
  if (!chooseAgain(selections, selections.verticals, chooseVerticalReference, choice.vertical, of.vertical))
    return missing("the heights");
  if (!chooseAgain(selections, selections.countyZones, chooseCountyZone, choice.zoneSuffix, of.zoneSuffix))
    return missing("the county zone");
  // The person may have changed what the data set brought along.
  chooseAdjustment(selections, wanted.adjustment);
  chooseVerticalDatum(selections, wanted.verticalDatum);
  pickProjection(selections, Side::Source, wanted.SourceProjectionCode);
  return std::nullopt;
}

}  // namespace tovak::selection
