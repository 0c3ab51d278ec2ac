#include "formats/database/geodetic_csv_reader.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "formats/database/sheet_rows.h"
#include "run/format_index.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats {
namespace {

/// From here on projections are taken to lie in one county zone.
constexpr std::int16_t kFirstProjectionOfOneZone = 264;

class GeodeticCsvReader final : public run::PointReader {
 public:
  explicit GeodeticCsvReader(const run::SourceContext& context)
      : lines_(context.lines),
        counts_(context.counts),
        choice_(context.settings.geodeticCsv),
        stream_(context.lines, choice_.sheets),
        filtersZones_(context.settings.targetFormat >= run::target::TrimbleWaypoints ||
                      context.settings.TargetProjectionCode >= kFirstProjectionOfOneZone),
        countyZone_(choice_.countyName + choice_.zoneSuffix) {}

  /// A sheet that has gone since it was chosen is better missed before the target is begun than in its middle.
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
    point.InNorthLat = value(choice_.horizontal);
    point.InEastLon = value(static_cast<std::int16_t>(choice_.horizontal + 1));
    if (!(point.InNorthLat > 0.0 && point.InEastLon > 0.0)) return &counts_.zeroCoordinate;
    point.pointNumber = row_.stationIdentifier();
    point.description = row_.name();
    if (choice_.vertical != 0) point.Elevation = value(choice_.vertical);
    return nullptr;
  }

  double value(std::int16_t number) const { return text::leadingNumber(row_.value(number)); }

  text::LineReader& lines_;
  run::RecordCounts& counts_;
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

}  // namespace tovak::formats
