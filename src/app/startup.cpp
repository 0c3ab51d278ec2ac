#include "app/startup.h"

#include <optional>
#include <system_error>
#include <utility>

#include "formats/database/map_sheets.h"
#include "formats/delimited/built_in_formats.h"
#include "run/engine_loader.h"
#include "run/module_loader.h"
#include "text/environment.h"
#include "text/native_path.h"

namespace tovak::app {
namespace {

namespace fs = std::filesystem;

constexpr const char* kDefinitionsName = "Tovak.cdf";
constexpr const char* kMapSheetsName = "mapsheets.txt";

}  // namespace

void prepareDataFolder(const fs::path& dataFolder) {
  if (dataFolder.empty()) return;
  std::error_code ignored;
  fs::create_directories(dataFolder, ignored);
  const fs::path definitions = dataFolder / kDefinitionsName;
  const std::optional<std::string> programs = text::environmentValue("ProgramFiles");
  if (!programs) return;
  const fs::path installed = text::pathOf(*programs) / "Tovak" / kDefinitionsName;
  fs::copy_file(installed, definitions, ignored);  // never over an existing file
}

std::string definitionsFile(const fs::path& dataFolder) {
  return dataFolder.empty() ? std::string() : (dataFolder / kDefinitionsName).string();
}

text::Result<formats::delimited::DelimitedFormatTable> loadFormats(const fs::path& dataFolder) {
  const formats::delimited::DelimitedFormatTable standardAlone = {formats::delimited::standardFormat()};
  if (dataFolder.empty()) return standardAlone;
  const std::string path = definitionsFile(dataFolder);
  std::string ignored;  // A folder that cannot be written to does not matter until formats are saved.
  formats::delimited::ensureDefinitionsFile(path, ignored);
  std::error_code unknown;
  if (!fs::exists(text::pathOf(path), unknown)) return standardAlone;
  return formats::delimited::loadDefinitions(path);
}

std::string loadMapSheetCodes(const fs::path& dataFolder) {
  std::error_code unknown;
  const fs::path own = dataFolder / kMapSheetsName;
  const bool replaced = !dataFolder.empty() && fs::exists(own, unknown);
  return formats::database::loadMapSheetCodes(replaced ? own.string() : run::programFile(kMapSheetsName));
}

std::string dailyReportName(const fs::path& dataFolder, const text::Date& date) {
  std::string name = "Tovak";
  text::appendDate(name, date, '-');
  name += ".rpt";
  return (dataFolder / name).string();
}

EngineStart startEngine() {
  run::EngineResult loaded = run::createEngine(run::kEngineIdentifier);
  if (loaded.engine == nullptr) {
    return {nullptr,
            {"The TovakX Object could not be loaded.", "Missing Component", run::Icon::None},
            std::move(loaded.reason)};
  }
  if (loaded.engine->GetVersion() < run::kOldestEngineVersion) {
    return {nullptr,
            {"The TovakX Component is out of date.\nRun the newest TovakX_Install.exe.", "TovakX Version Error",
             run::Icon::None},
            {}};
  }
  return {std::move(loaded.engine), {}, {}};
}

}  // namespace tovak::app
