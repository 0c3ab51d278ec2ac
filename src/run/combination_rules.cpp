#include "run/combination_rules.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "run/format_index.h"
#include "run/labels.h"
#include "run/projection_code.h"
#include "text/file_identity.h"

namespace tovak::run {
namespace {

using Settings = RunSettings;

struct CombinationRule {
  bool (*broken)(const Settings&);
  Message message;
};

bool sourceIs(const Settings& s, source::Index format) {
  return s.sourceFormat == format;
}
bool targetIs(const Settings& s, target::Index format) {
  return s.targetFormat == format;
}

bool oneFile(const std::string& a, const std::string& b) {
  return a == b || text::sameFile(a, b);
}

/// Whether a run reads the file of that name. A geodetic database source may have several files.
bool isRead(const Settings& settings, const std::string& name) {
  if (sourceIs(settings, source::Keyboard)) return false;
  if (oneFile(settings.source.fileName, name)) return true;
  return sourceIs(settings, source::GeodeticCsv) &&
         std::ranges::any_of(settings.options.geodeticCsv.sheets,
                             [&](const std::string& sheet) { return oneFile(sheet, name); });
}

bool targetIsFile(const Settings& settings) {
  return !targetIs(settings, target::ScreenOnly);
}

const CombinationRule& targetCollision() {
  static const CombinationRule kRule = {
      [](const Settings& s) { return targetIsFile(s) && isRead(s, s.target.fileName); },
      {"Source file has same name as target file.", "Conflicting file names", Icon::Exclamation}};
  return kRule;
}

const CombinationRule& reportCollision() {
  static const CombinationRule kRule = {
      [](const Settings& s) {
        return s.reportEnabled &&
               (isRead(s, s.reportFileName) || (targetIsFile(s) && oneFile(s.target.fileName, s.reportFileName)));
      },
      {"The report file has the same name as the source or target file.", "Conflicting file names", Icon::Exclamation}};
  return kRule;
}

bool needsLatLongNad83(const Settings& s) {
  constexpr std::int16_t kFormats[] = {target::DeLorme, target::Maptech, target::WayPointsPlus, target::Kml,
                                       target::GeoJson};
  return std::ranges::count(kFormats, s.targetFormat) != 0 && s.TargetProjectionCode != kLatLongNad83;
}

bool needsPlane(const Settings& s) {
  return (targetIs(s, target::LandXml) || targetIs(s, target::Dxf)) && isLatLong(s.TargetProjectionCode);
}

const auto& rules() {
  static const auto kRules = std::to_array<CombinationRule>({
      {[](const Settings& s) {
         return s.SourceProjectionCode == kUserDefinedProject && s.TargetProjectionCode == kUserDefinedProject;
       },
       {"Both Source and Target Map Projections cannot be 'User Defined Project'", "Invalid conversion combination",
        Icon::None}},
      {[](const Settings& s) {
         return s.SourceProjectionCode > kLastProjectionCode || s.TargetProjectionCode > kLastProjectionCode;
       },
       {"For LMO or KRV batch calculations only", "Invalid map projection", Icon::None}},
      {[](const Settings& s) { return sourceIs(s, source::Vesko80Column) && isLatLong(s.SourceProjectionCode); },
       {"Vesko 80 column format not valid with NAD27 or NAD83 lat/long map projection", "Invalid source combination",
        Icon::None}},
      {[](const Settings& s) { return sourceIs(s, source::Vesko80Column) && isUtm(s.SourceProjectionCode); },
       {"Vesko 80 column format not valid with NAD27 or NAD83 UTM map projection", "Invalid source combination",
        Icon::Exclamation}},
      {[](const Settings& s) { return sourceIs(s, source::CoordsLog) && isUtm(s.SourceProjectionCode); },
       {"Trimble Coords.log format not valid with NAD27 or NAD83 UTM map projection", "Invalid source combination",
        Icon::Exclamation}},
      {[](const Settings& s) {
         return sourceIs(s, source::BlueBook) && isStatePlane(s.SourceProjectionCode) && !s.source.metres;
       },
       {"Units must be meters in NGS files containing state plane coordinates", "Invalid source combination",
        Icon::Exclamation}},
      {[](const Settings& s) { return sourceIs(s, source::BlueBook) && isCountyOrProject(s.SourceProjectionCode); },
       {"NGS Blue Book format not valid with a county map projection or project coordinate system",
        "Invalid source combination", Icon::Exclamation}},
      {[](const Settings& s) { return sourceIs(s, source::CoordsLog) && isCountyOrProject(s.SourceProjectionCode); },
       {"Trimble Coords.log format not valid with a county map projection or project coordinate system",
        "Invalid source combination", Icon::Exclamation}},
      {[](const Settings& s) { return targetIs(s, target::ScreenOnly) && !s.reportEnabled && s.BatchMode == 0; },
       {"Reports are Disabled", "Warning", Icon::Exclamation}},
      {[](const Settings& s) { return targetIs(s, target::Vesko80Column) && isLatLong(s.TargetProjectionCode); },
       {"Vesko 80 column format not valid with NAD27 or NAD83 lat/long map projection", "Invalid target combination",
        Icon::Exclamation}},
      {[](const Settings& s) { return targetIs(s, target::Vesko80Column) && isUtm(s.TargetProjectionCode); },
       {"Vesko 80 column format not valid with NAD27 or NAD83 UTM map projection", "Invalid target combination",
        Icon::Exclamation}},
      {[](const Settings& s) {
         return targetIs(s, target::BlueBook) && isStatePlane(s.TargetProjectionCode) && !s.target.metres;
       },
       {"Units must be meters in NGS Blue Book files containing state plane coordinates.", "Invalid target combination",
        Icon::None}},
      {[](const Settings& s) { return targetIs(s, target::BlueBook) && isCountyOrProject(s.TargetProjectionCode); },
       {"NGS Blue Book format not valid with a county map projection or county coordinate system",
        "Invalid target combination", Icon::Exclamation}},
      targetCollision(),
      reportCollision(),
      {[](const Settings& s) { return targetIs(s, target::GeodimeterControl) && isLatLong(s.TargetProjectionCode); },
       {"Geodimeter Raw format not valid with NAD27 or NAD83 lat/long map projection", "Invalid target combination",
        Icon::Exclamation}},
      {needsLatLongNad83,
       {"This format holds NAD83 latitude and longitude only.", "Invalid target combination", Icon::Exclamation}},
      {needsPlane,
       {"This format holds plane coordinates only, not latitude and longitude.", "Invalid target combination",
        Icon::Exclamation}},
  });
  return kRules;
}

}  // namespace

const Message* firstBrokenRule(const RunSettings& settings) {
  for (const CombinationRule& rule : rules()) {
    if (rule.broken(settings)) return &rule.message;
  }
  return nullptr;
}

const Message* fileCollision(const RunSettings& settings) {
  for (const CombinationRule* const rule : {&targetCollision(), &reportCollision()}) {
    if (rule->broken(settings)) return &rule->message;
  }
  return nullptr;
}

bool crossesDatums(const RunSettings& settings) {
  return isOnNad27(settings, settings.SourceProjectionCode) != isOnNad27(settings, settings.TargetProjectionCode);
}

}  // namespace tovak::run
