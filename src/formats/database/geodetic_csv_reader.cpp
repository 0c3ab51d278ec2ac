#include "formats/database/geodetic_csv_reader.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "formats/database/sheet_rows.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::database {
namespace {

constexpr const char* kTitle = "CSV Input Error";

class GeodeticCsvReader final : public run::PointReader {
 public:
  explicit GeodeticCsvReader(const run::SourceContext& context)
      : lines_(context.lines),
        counts_(context.counts),
        doubts_(context.doubts),
        choice_(context.settings.options.geodeticCsv),
        stream_(context.lines, choice_.sheets),
        filtersZones_(context.oneCountyZone),
        countyZone_(choice_.countyName + choice_.zoneSuffix) {}

  /// A sheet that has disappeared since it was chosen is better noticed before the target is begun.
  bool check() override {
    return std::ranges::all_of(choice_.sheets, [this](const std::string& sheet) { return lines_.open(sheet); });
  }

  run::ReadState read(run::PointRecord& point) override {
    std::string_view line;
    while (stream_.next(line)) {
      if (run::Tally* const reason = take(line, point)) {
        run::addTo(*reason, lines_.lineNumber(), choice_.sheets.size() > 1 ? lines_.fileName() : std::string_view());
        continue;
      }
      point.sourceLine = lines_.lineNumber();
      return run::ReadState::Point;
    }
    return run::ReadState::End;
  }

 private:
  /// Fills the point, or gives the reason why the line is passed over.
  run::Tally* take(std::string_view line, run::PointRecord& point) {
    if (isHeading(line)) return &counts_.noPoint;
    stream_.split(line, row_);
    if (filtersZones_ && !text::equalsIgnoringCase(row_.countyZone(), countyZone_)) return &counts_.otherZone;
    bool textBehind = false;
    const double latitude = text::leadingNumber(row_.value(choice_.horizontal), textBehind);
    const auto besideIt = static_cast<std::int16_t>(choice_.horizontal + 1);
    const double longitude = text::leadingNumber(row_.value(besideIt), textBehind);
    if (!(latitude > 0.0 && longitude > 0.0)) return &counts_.zeroCoordinate;
    constexpr auto kForm = text::AngleForm::DegreesMinutesSeconds;
    run::takeAngles(point, text::interpretAngle(latitude, kForm), text::interpretAngle(longitude, kForm), doubts_);
    point.pointNumber = row_.stationIdentifier();
    point.description = row_.name();
    if (choice_.vertical != 0) point.Elevation = text::leadingNumber(row_.value(choice_.vertical), textBehind);
    if (textBehind) doubts_.raise(run::Doubt::TextBehindNumber);
    return nullptr;
  }

  text::LineReader& lines_;
  run::RecordCounts& counts_;
  run::DoubtFlags& doubts_;
  const run::GeodeticCsvChoice& choice_;
  SheetStream stream_;
  const bool filtersZones_;
  const std::string countyZone_;
  SheetRow row_;
};

}  // namespace

std::unique_ptr<run::PointReader> makeGeodeticCsvReader(const run::SourceContext& context) {
  return std::make_unique<GeodeticCsvReader>(context);
}

std::optional<run::Message> missingGeodeticCsvChoice(const run::RunSettings& settings) {
  const run::GeodeticCsvChoice& choice = settings.options.geodeticCsv;
  if (choice.horizontal == 0) {
    return run::Message{"You must select a horizontal reference option.", kTitle, run::Icon::Exclamation,
                        "lstHorizontal"};
  }
  if (choice.zonesOffered && choice.zoneSuffix.empty()) {
    return run::Message{"You must select a county zone.", kTitle, run::Icon::Exclamation, "lstCsvZone"};
  }
  return std::nullopt;
}

}  // namespace tovak::formats::database
