// Map sheets: two of them separated by a null character, and the list of their codes.
#include "formats/database/map_sheets.h"
#include "formats/database/sheet_scan.h"
#include "harness.h"
#include "run/format_index.h"

using namespace tovak;
using namespace tovak::formats::database;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const unsigned choice = fuzz::takeByte(bytes);
  const std::size_t middle = std::min(bytes.find('\0'), bytes.size());
  const std::string first = fuzz::folder().write("SHEET1.csv", bytes.substr(0, middle));
  fuzz::folder().write("SHEET2.csv", bytes.substr(std::min(middle + 1, bytes.size())));
  const text::Result<MapSheetList> sheets = findMapSheets(first);
  fuzz::require(sheets && sheets->size() == 2, "both sheets are found", sheets.error);
  const SheetScan scan = scanSheets(*sheets);
  run::RunSettings settings = fuzz::settingsFor(run::source::GeodeticCsv, run::target::CommaDelimited, 4);
  settings.source.fileName = first;
  settings.options.geodeticCsv = {.sheets = *sheets,
                                  .horizontal = static_cast<std::int16_t>(1 + 2 * (choice % 6)),
                                  .vertical = static_cast<std::int16_t>(13 + choice % 2)};
  settings.SourceProjectionCode = 0;
  const fuzz::Account account = fuzz::runOnce(settings, fuzz::engine());
  fuzz::requireSums(account);
  const bool referenceSet = settings.options.geodeticCsv.horizontal == 11;
  if (account.result.counts.converted > 0 && !referenceSet && scan.error.empty()) {
    fuzz::require(scan.present[static_cast<std::size_t>(settings.options.geodeticCsv.horizontal)],
                  "what is converted was seen before the run");
  }
  isMapSheet(first, loadMapSheetCodes(first));
  return 0;
}
