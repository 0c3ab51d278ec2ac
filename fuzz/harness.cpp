#include "harness.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "app/console_person.h"
#include "formats/format_tables.h"
#include "report/report_writer.h"

namespace tovak::fuzz {
namespace {

class CountingScreen final : public run::Screen {
 public:
  std::uint64_t rows = 0;
  void showRow(const run::PointRecord&, bool) override { ++rows; }
  void showGrid() override {}
  void printReport(const run::ReportHeading&, std::uint64_t) override {}
};

}  // namespace

const run::FormatTables& tables() {
  static const run::FormatTables instance = [] {
    run::FormatTables formats = formats::formatTables();
    formats.report = {.makeWriter = report::makeReportWriter,
                      .version = "1.0.0",
                      .today =
                          [] {
                            return text::Date{2026, 11, 21};
                          },
                      .joint = report::reportJoint};
    return formats;
  }();
  return instance;
}

void require(bool holds, std::string_view property, std::string_view detail) {
  if (holds) return;
  std::fprintf(stderr, "property broken: %.*s\n%.*s\n", static_cast<int>(property.size()), property.data(),
               static_cast<int>(detail.size()), detail.data());
  std::abort();
}

std::uint8_t takeByte(std::string_view& bytes) {
  if (bytes.empty()) return 0;
  const auto byte = static_cast<std::uint8_t>(bytes.front());
  bytes.remove_prefix(1);
  return byte;
}

const tests::TemporaryFolder& folder() {
  static const tests::TemporaryFolder instance;
  static const int set = setenv("APPDATA", instance.path().c_str(), 1);
  return set == 0 ? instance : instance;
}

run::RunSettings settingsFor(std::int16_t source, std::int16_t target, std::int16_t code) {
  run::RunSettings settings;
  settings.sourceFormat = source;
  settings.targetFormat = target;
  settings.SourceProjectionCode = settings.TargetProjectionCode = code;
  settings.source.fileName = folder().file("in");
  settings.target.fileName = folder().file("out.txt");
  settings.source.projectionText = settings.target.projectionText = std::to_string(code);
  settings.reportEnabled = true;
  settings.appendReport = false;
  settings.reportFileName = folder().file("report");
  settings.BatchMode = 2;
  return settings;
}

Account runOnce(run::RunSettings settings, run::ConversionEngine& engine) {
  std::ostringstream said;
  app::ConsolePerson person(said, false, false);
  CountingScreen screen;
  fuzz::engine().calls.clear();
  Account account;
  account.result = run::convert(settings, engine, tables(), {.person = person, .screen = &screen});
  account.rowsShown = screen.rows;
  return account;
}

tests::ScriptedEngine& engine() {
  static tests::ScriptedEngine instance;
  instance.arithmetic = tests::ScriptedEngine::leave;
  instance.projectionFromText = [](const std::string& text, std::string& filled) -> std::int16_t {
    filled = "N Lake - North";
    return text.empty() ? run::kUnknownCounty : std::int16_t{7};
  };
  return instance;
}

void requireSums(const Account& account) {
  const run::RecordCounts& counts = account.result.counts;
  require(recordsRead(counts) == counts.converted + recordsSkipped(counts) + recordsPassedOver(counts), "sums");
  require(account.rowsShown == counts.converted, "every point converted is shown, and no other");
  require((recordsSkipped(counts) > 0) == !counts.firstSkipReason.empty(), "a skipped point has a reason");
}

std::uint64_t linesIn(std::string_view text) {
  return static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace tovak::fuzz
