#include "formats/agency/lmo_export.h"

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "formats/agency/export_engine.h"
#include "formats/agency/export_files.h"
#include "formats/agency/lmo_system_code.h"
#include "run/divided_counties.h"
#include "run/length_unit.h"
#include "run/projection_box.h"
#include "run/projection_code.h"
#include "text/angle.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::agency {
namespace {

constexpr std::string_view kNewColumns = ",LATD,LATM,LATS,LOND,LONM,LONS,CCX,CCY,CCZONE,SPX,SPY,SPZONE,UTX,UTY";
constexpr const char* kNoLatLong = " **** Could Not Compute Lat/Lon **** ";
constexpr std::string_view kZoneWords[] = {"North", "Central", "South", "North Shore"};

/// Why a line is refused before the engine is asked for its point.
struct Refusal {
  std::int16_t code;
  std::string_view text;  ///< comes before the line
  const char* reason;
};

constexpr Refusal kRefusals[] = {
    {kCountyMissing, " **** County Name Was Not Found **** ", "The county is out of state or not known."},
    {kCountyZoneMissing, " **** County Zone Not Specified **** ", "The county is divided, and its zone is not told."},
    {kDatumMissing, " **** No Coordinate Datum Found **** ", "The system code names no system."},
};

/// One line and what is known about it.
struct LmoPoint {
  std::string_view line;
  double x = 0.0;
  double y = 0.0;
  std::string_view county;
  LmoSystem system;
  std::int16_t sourceCode = 0;
  std::string sourceText;
  Position source;   ///< as the engine gets it
  Position latLong;  ///< longitude negative west
};

bool isHeading(std::string_view line) {
  return text::leadingNumber(line) == 0.0;
}

/// ",DEGREES,MINUTES,SECONDS" without leading zeros.
void appendAngle(std::string& out, const text::SplitAngle& angle) {
  constexpr int kUnitsPerSecond = 100000;
  out += angle.negative ? ",-" : ",";
  text::appendWhole(out, angle.degrees);
  text::appendWhole(out += ',', angle.minutes);
  text::appendWhole(out += ',', angle.hundredThousandths / kUnitsPerSecond);
  text::appendSecondsFraction(out += '.', angle);
}

class LmoExport {
 public:
  explicit LmoExport(const run::ExportContext& context)
      : files_(context), engine_(context.engine), counts_(context.counts), accuracy_(context.settings.accuracy) {}

  bool run();

 private:
  bool begin(std::string_view& line);
  bool writeRecord(std::string_view line);
  void takePoint(std::string_view line);
  std::int16_t sourceCode() const;
  bool locate();
  bool locateByAngles();
  void chooseZone(const text::SplitAngle& latitude);
  bool writeColumns();
  void appendPlane(std::int16_t code, std::string_view failure);
  bool writeRefused(const Refusal& refusal);

  ExportFiles files_;
  ExportEngine engine_;
  run::RecordCounts& counts_;
  const text::Accuracy accuracy_;
  LmoPoint point_;
  FoundZone zone_;
  FoundZone otherZone_;
  std::int16_t firstError_ = 0;  // among the plane systems of the line
  std::string out_;              // the target line being made
};

bool LmoExport::run() {
  if (!files_.openSource("The target format must be LMO Database Dump")) return false;
  std::string_view line;
  bool more = files_.createTarget() && files_.next(line);
  if (more && isHeading(line)) {
    run::addTo(counts_.noPoint, files_.lineNumber());
    out_ = line;
    more = files_.writeLine(out_ += kNewColumns) && files_.next(line);
  }
  for (; more; more = more && files_.next(line)) {
    if (isHeading(line)) {
      run::addTo(counts_.noPoint, files_.lineNumber());
    } else {
      more = writeRecord(line);
    }
  }
  return files_.finish("LMO Batch Output File Written");
}

bool LmoExport::writeRecord(std::string_view line) {
  takePoint(line);
  if (point_.county == kOutOfState) {
    zone_.code = kCountyMissing;
  } else {
    engine_.findCounty(point_.county, point_.system.zoneWord, zone_);
  }
  point_.sourceCode = sourceCode();
  for (const Refusal& refusal : kRefusals) {
    if (refusal.code == point_.sourceCode) return writeRefused(refusal);
  }
  point_.sourceText = run::projectionText(point_.sourceCode, point_.system.metres);
  out_.clear();
  if (!locate()) {
    out_ += line;
    return files_.writeLine(out_);
  }
  return writeColumns();
}

void LmoExport::takePoint(std::string_view line) {
  point_.line = line;
  point_.x = text::leadingNumber(text::takeField(line, ','));
  point_.y = text::leadingNumber(text::takeField(line, ','));
  point_.county = text::trimBlanks(text::takeField(line, ','));
  point_.system = readLmoSystem(text::trimBlanks(text::takeField(line, ',')));
}

std::int16_t LmoExport::sourceCode() const {
  if (zone_.code > run::kLastCountyZone) return kCountyMissing;
  if (point_.system.code != kCountySystem) return point_.system.code;
  return point_.system.zoneWord.empty() && run::isDividedCounty(zone_.code) ? kCountyZoneMissing : zone_.code;
}

/// Finds latitude and longitude; false with the reason in the line being made.
bool LmoExport::locate() {
  if (run::isLatLong(point_.sourceCode)) return locateByAngles();
  point_.source = {.northLat = point_.y, .eastLon = point_.x};
  const std::string latLong = run::projectionText(run::kLatLongNad83, false);
  const std::int16_t error = engine_.convert(point_.source, point_.sourceText, latLong, point_.latLong);
  if (error < 1) return true;
  out_ += engine_.failureText(error, kNoLatLong);
  run::countSkipped(counts_, counts_.refusedByEngine, files_.lineNumber(), engine_.errorText(error));
  return false;
}

bool LmoExport::locateByAngles() {
  // The larger number is the longitude, whichever comes first.
  if (std::fabs(point_.x) < std::fabs(point_.y)) std::swap(point_.x, point_.y);
  constexpr auto kForm = text::AngleForm::DegreesMinutesSeconds;
  const text::AngleReading latitude = text::interpretAngle(point_.y, kForm);
  const text::AngleReading longitude = text::interpretAngle(point_.x, kForm);
  const text::AngleFault fault = latitude.fault != text::AngleFault::None ? latitude.fault : longitude.fault;
  if (fault == text::AngleFault::None) {
    point_.source = {.northLat = latitude.degrees, .eastLon = -std::fabs(longitude.degrees)};
    point_.latLong = point_.source;
    return true;
  }
  out_ += kNoLatLong;
  run::countSkipped(counts_, counts_.refusedAngle, files_.lineNumber(), std::string(text::angleFaultText(fault)));
  return false;
}

/// Takes the zone of a divided county from the latitude, where the code asks for the county and names no zone.
void LmoExport::chooseZone(const text::SplitAngle& latitude) {
  if (!point_.system.namesCounty || !point_.system.zoneWord.empty()) return;
  const std::int16_t chosen = run::zoneAtLatitude(zone_.code, latitude);
  if (chosen == zone_.code) return;
  // The engine finds zones by their words only, so the words are tried until one gives the chosen zone.
  for (const std::string_view word : kZoneWords) {
    engine_.findCounty(point_.county, word, otherZone_);
    if (otherZone_.code != chosen) continue;
    std::swap(zone_, otherZone_);
    return;
  }
  zone_.code = chosen;
  zone_.filled.resize(zone_.stateLetter().size());
}

bool LmoExport::writeColumns() {
  const text::SplitAngle latitude = text::splitAngle(point_.latLong.northLat);
  chooseZone(latitude);
  firstError_ = 0;
  out_ += point_.line;
  appendAngle(out_, latitude);
  appendAngle(out_, text::splitAngle(-point_.latLong.eastLon));
  appendPlane(zone_.code, ",**County Conversion Failed**,****");
  (out_ += ',') += zone_.name();
  // These two follow the text before them without a comma, as the agency's application expects.
  appendPlane(zone_.statePlaneCode(), "**State Plane Conversion Failed**,****");
  (out_ += ',') += zone_.stateLetter();
  appendPlane(run::kUtmNad83, "**UTM Conversion Failed**,****");
  if (firstError_ == 0) {
    ++counts_.converted;
  } else {
    run::countSkipped(counts_, counts_.refusedByEngine, files_.lineNumber(), engine_.errorText(firstError_));
  }
  return files_.writeLine(out_);
}

/// ",X,Y" in a system, in feet, or the failure's text.
void LmoExport::appendPlane(std::int16_t code, std::string_view failure) {
  Position plane = point_.source;
  if (code != point_.sourceCode) {
    const std::int16_t error =
        engine_.convert(point_.source, point_.sourceText, run::projectionText(code, false), plane);
    if (error >= 1) {
      if (firstError_ == 0) firstError_ = error;
      out_ += failure;
      return;
    }
  } else if (point_.system.metres) {
    for (double* const length : {&plane.northLat, &plane.eastLon}) {
      *length = run::convertLength(*length, run::LengthUnit::metres, run::LengthUnit::usSurveyFeet);
    }
  }
  text::formatPrecision(out_ += ',', plane.eastLon, accuracy_);
  text::formatPrecision(out_ += ',', plane.northLat, accuracy_);
}

bool LmoExport::writeRefused(const Refusal& refusal) {
  run::countSkipped(counts_, counts_.refusedCounty, files_.lineNumber(), refusal.reason);
  out_ = refusal.text;
  return files_.writeLine(out_ += point_.line);
}

}  // namespace

bool exportLmoBatch(const run::ExportContext& context) {
  return LmoExport(context).run();
}

}  // namespace tovak::formats::agency
