#include "selection/database_source.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

#include "formats/database/map_sheets.h"
#include "formats/database/sheet_scan.h"
#include "run/run_messages.h"
#include "selection/database_choices.h"
#include "text/native_path.h"
#include "text/strings.h"
#include "text/system_error.h"

namespace tovak::selection {
namespace {

formats::database::MapSheetList chosenSheets(formats::database::MapSheetList found, const std::string& chosen,
                                             const Ask& ask) {
  run::Answer answer = run::Answer::No;
  if (found.size() > 1) answer = ask(formats::database::mapSheetQuestion(found.size()));
  if (answer == run::Answer::Cancel) return {};
  // A single sheet is read by the name under which it was chosen.
  return answer == run::Answer::Yes ? std::move(found) : formats::database::MapSheetList{chosen};
}

}  // namespace

DatabaseOutcome chooseDatabaseSource(Selections& selections, const run::FormatTables& formats, const Ask& ask) {
  run::RunSettings& settings = selections.run;
  const auto leave = [&](DatabaseOutcome outcome) {
    leaveForKeyboard(selections, formats);
    return outcome;
  };
  const std::string path(text::trimBlanks(settings.source.fileName));
  std::error_code error;
  const bool there = std::filesystem::exists(text::pathOf(path), error);
  if (error) return leave({.problem = run::systemMessage(text::systemErrorText(path, error))});
  if (!there) return leave({.missing = true, .problem = std::nullopt});
  text::Result<formats::database::MapSheetList> search = formats::database::findMapSheets(path);
  if (!search) return leave({.problem = formats::database::sheetMessage(search.error)});
  if (search->empty()) return leave({.missing = true, .problem = std::nullopt});
  formats::database::MapSheetList sheets = chosenSheets(std::move(*search), path, ask);
  if (sheets.empty()) return leave({});
  const formats::database::SheetScan scan = formats::database::scanSheets(sheets);
  if (!scan.error.empty()) return leave({.problem = run::systemMessage(scan.error)});
  settings.source.fileName = path;
  settings.options.geodeticCsv.sheets = std::move(sheets);
  // The database carries its own adjustment.
  chooseAdjustment(selections, run::Adjustment::None);
  fillDatabaseLists(selections, scan);
  beginDatabase(selections, formats);
  chooseSourceFormat(selections, formats, settings.sourceFormat);
  return {};
}

}  // namespace tovak::selection
