#include "selection/database_source.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

#include "formats/database/map_sheets.h"
#include "formats/database/sheet_scan.h"
#include "run/conversion_run.h"
#include "run/format_index.h"
#include "selection/database_choices.h"
#include "text/strings.h"
#include "text/system_error.h"

namespace tovak::selection {
namespace {

formats::MapSheetList chosenSheets(formats::MapSheetList found, const std::string& chosen, const Ask& ask) {
  run::Answer answer = run::Answer::No;
  if (found.size() > 1) answer = ask(formats::mapSheetQuestion(found.size()));
  if (answer == run::Answer::Cancel) return {};
  // One sheet is read by the name that it was chosen by.
  return answer == run::Answer::Yes ? std::move(found) : formats::MapSheetList{chosen};
}

}  // namespace

DatabaseOutcome chooseDatabaseSource(Selections& selections, const run::FormatTables& formats, const Ask& ask) {
  run::RunSettings& settings = selections.run;
  const auto leave = [&](DatabaseOutcome outcome) {
    chooseSourceFormat(selections, formats, run::source::Keyboard);
    return outcome;
  };
  const std::string path(text::trimBlanks(settings.source.fileName));
  std::error_code error;
  const bool there = std::filesystem::exists(path, error);
  if (error) return leave({.problem = run::systemMessage(text::systemErrorText(path, error.value()))});
  if (!there) return leave({.missing = true, .problem = std::nullopt});
  formats::MapSheetSearch search = formats::findMapSheets(path);
  if (search.problem) return leave({.problem = std::move(search.problem)});
  if (search.sheets.empty()) return leave({.missing = true, .problem = std::nullopt});
  formats::MapSheetList sheets = chosenSheets(std::move(search.sheets), path, ask);
  if (sheets.empty()) return leave({});
  const formats::SheetScan scan = formats::scanSheets(sheets);
  if (!scan.error.empty()) return leave({.problem = run::systemMessage(scan.error)});
  settings.source.fileName = path;
  settings.geodeticCsv.sheets = std::move(sheets);
  // The database carries its own adjustment.
  chooseAdjustment(selections, run::Adjustment::None);
  fillDatabaseLists(selections, scan);
  chooseSourceFormat(selections, formats, run::source::GeodeticCsv);
  return {};
}

}  // namespace tovak::selection
