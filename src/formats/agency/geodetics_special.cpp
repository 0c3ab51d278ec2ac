#include "formats/agency/geodetics_special.h"

#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "formats/agency/export_engine.h"
#include "formats/agency/export_files.h"
#include "run/divided_counties.h"
#include "run/projection_box.h"
#include "run/projection_code.h"
#include "text/fixed_columns.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::agency {
namespace {

constexpr std::string_view kHeading =
    "STATION NAME,COUNTY NAME,LATITUDE,LONGITUDE,XCOORD,YCOORD,COUNTY X,COUNTY Y,ORDER";
constexpr double kCountsPerDegree = 100000.0;
constexpr int kAngleDecimals = 5;

struct Station {
  std::optional<double> latitude;
  std::optional<double> longitude;
  std::string_view name;
  std::string_view county;
  std::string_view zoneWord;
  std::string_view order;
};

std::optional<double> takeAngle(std::string_view& rest) {
  const std::optional<double> count = text::strictNumber(text::takeField(rest, ','));
  if (!count || !std::isfinite(*count)) return std::nullopt;
  return *count / kCountsPerDegree;
}

Station takeStation(std::string_view rest) {
  Station station;
  station.latitude = takeAngle(rest);
  station.longitude = takeAngle(rest);
  station.name = text::takeField(rest, ',');
  station.county = text::takeField(rest, ',');
  station.zoneWord = text::takeField(rest, ',');
  text::takeField(rest, ',');
  station.order = rest;
  return station;
}

bool isTitle(std::string_view line) {
  return line.empty() || line.front() < '0' || line.front() > '9';
}

class GeodeticsSpecial {
 public:
  explicit GeodeticsSpecial(const run::ExportContext& context)
      : files_(context),
        engine_(context.engine),
        counts_(context.counts),
        accuracy_(context.settings.accuracy),
        metres_(run::marksMetres(context.settings.target.projectionText)) {}

  bool run();

 private:
  bool skipTitles(std::string_view& line);
  bool writeStation(const Station& station, std::string_view line);
  bool convertStation(const Station& station, std::string_view line);
  bool writeRefused(std::string_view reason);
  bool writeFailed(std::int16_t errorCode, const char* otherwise, std::string_view line);
  void put(std::initializer_list<std::string_view> fields);
  void putAngles(const Station& station);
  void putPlane(const Position& plane);

  ExportFiles files_;
  ExportEngine engine_;
  run::RecordCounts& counts_;
  const text::Accuracy accuracy_;
  const bool metres_;
  FoundZone zone_;
  std::string out_;  // the target line being made
};

bool GeodeticsSpecial::run() {
  if (!files_.openSource("The target format must be Geodetics Special")) return false;
  std::string_view line;
  bool more = skipTitles(line) && files_.createTarget() && files_.writeLine(kHeading);
  for (; more; more = more && files_.next(line)) {
    if (line.find(',') == std::string_view::npos) {
      run::addTo(counts_.withoutDelimiter, files_.lineNumber());
      continue;
    }
    const Station station = takeStation(line);
    if (!station.latitude || !station.longitude) {
      return files_.stopAtLine("Invalid latitude or longitude", "Geodetics Special");
    }
    more = writeStation(station, line);
  }
  return files_.finish("Geodetics Special Output File Written");
}

/// True with the first line that is not a title.
bool GeodeticsSpecial::skipTitles(std::string_view& line) {
  while (files_.next(line)) {
    if (!isTitle(line)) return true;
    run::addTo(counts_.noPoint, files_.lineNumber());
  }
  return false;
}

bool GeodeticsSpecial::writeStation(const Station& station, std::string_view line) {
  out_.clear();
  const bool outOfState = station.county == kOutOfState;
  if (!outOfState) engine_.findCounty(station.county, station.zoneWord, zone_);
  if (outOfState || zone_.code == run::kUnknownCounty) {
    put({station.name, ",", station.county, ","});
    putAngles(station);
    put({",,,,,", station.order});
    return writeRefused("The county is out of state or not known.");
  }
  if (zone_.code > run::kLastCountyZone) {
    // The only line with the zone word.
    put({station.name, ",", station.county, ",", station.zoneWord, ","});
    putAngles(station);
    put({" **** County Not Found ****"});
    return writeRefused("The county has no zone of its own.");
  }
  return convertStation(station, line);
}

bool GeodeticsSpecial::convertStation(const Station& station, std::string_view line) {
  const Position position = {.northLat = *station.latitude, .eastLon = *station.longitude};
  const std::string latLong = run::projectionText(run::kLatLongNad83, false);
  Position plane;
  std::int16_t error = engine_.convert(position, latLong, run::projectionText(zone_.statePlaneCode(), metres_), plane);
  if (error >= 1) return writeFailed(error, " **** Could Not Compute State Plane **** ", line);
  put({station.name, ",", station.county, ","});
  putAngles(station);
  putPlane(plane);

  error = engine_.convert(position, latLong, run::projectionText(zone_.code, metres_), plane);
  // What is known of the station comes before the failure text.
  if (error >= 1) return writeFailed(error, " **** Could Not Compute County Coord **** ", line);
  putPlane(plane);
  put({",", station.order});
  ++counts_.converted;
  if (station.zoneWord.empty() && run::isDividedCounty(zone_.code)) {
    run::addTo(run::tallyOf(counts_.doubts, run::Doubt::FirstZone), files_.lineNumber());
  }
  return files_.writeLine(out_);
}

bool GeodeticsSpecial::writeRefused(std::string_view reason) {
  run::countSkipped(counts_, counts_.refusedCounty, files_.lineNumber(), std::string(reason));
  return files_.writeLine(out_);
}

bool GeodeticsSpecial::writeFailed(std::int16_t errorCode, const char* otherwise, std::string_view line) {
  put({engine_.failureText(errorCode, otherwise), line});
  run::countSkipped(counts_, counts_.refusedByEngine, files_.lineNumber(), engine_.errorText(errorCode));
  return files_.writeLine(out_);
}

void GeodeticsSpecial::put(std::initializer_list<std::string_view> fields) {
  for (const std::string_view field : fields) out_ += field;
}

void GeodeticsSpecial::putAngles(const Station& station) {
  text::appendMasked(out_, *station.latitude, kAngleDecimals);
  out_ += ',';
  text::appendMasked(out_, *station.longitude, kAngleDecimals);
}

void GeodeticsSpecial::putPlane(const Position& plane) {
  text::formatPrecision(out_ += ',', plane.eastLon, accuracy_);
  text::formatPrecision(out_ += ',', plane.northLat, accuracy_);
}

}  // namespace

bool exportGeodeticsSpecial(const run::ExportContext& context) {
  return GeodeticsSpecial(context).run();
}

}  // namespace tovak::formats::agency
