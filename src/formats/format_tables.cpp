#include "formats/format_tables.h"

#include <array>

#include "formats/agency/geodetics_special.h"
#include "formats/agency/krv_batch.h"
#include "formats/agency/lmo_export.h"
#include "formats/database/geodetic_csv_reader.h"
#include "formats/delimited/built_in_formats.h"
#include "formats/delimited/delimited_reader.h"
#include "formats/delimited/delimited_writer.h"
#include "formats/exchange/dxf_writer.h"
#include "formats/exchange/geojson_writer.h"
#include "formats/exchange/kml_writer.h"
#include "formats/exchange/landxml_writer.h"
#include "formats/gps/coords_log_reader.h"
#include "formats/gps/delorme_writer.h"
#include "formats/gps/maptech_writer.h"
#include "formats/gps/trimble_waypoint_writer.h"
#include "formats/survey/blue_book_reader.h"
#include "formats/survey/blue_book_writer.h"
#include "formats/survey/eighty_column_reader.h"
#include "formats/survey/eighty_column_writer.h"
#include "formats/survey/geodimeter_writer.h"
#include "formats/survey/geopak_reader.h"
#include "formats/survey/geopak_writer.h"
#include "formats/survey/sdms_reader.h"
#include "formats/survey/sdms_writer.h"
#include "formats/target_figures.h"
#include "run/format_index.h"
#include "run/keyboard_reader.h"
#include "run/run_messages.h"

namespace tovak::formats {
namespace {

using run::AgencyPartner;
using run::SourceFormat;
using run::SourceKind;
using run::TargetFormat;
using run::TargetKind;
using run::TargetOptions;
using text::AngleForm;

constexpr auto kSources = std::to_array<SourceFormat>({
    {.name = "Keyboard", .key = "keyboard", .kind = SourceKind::Keyboard, .makeReader = run::makeKeyboardReader},
    {.name = "Comma Delimited File",
     .key = "delimited",
     .makeReader = delimited::makeDelimitedReader,
     .openForm = true,
     .choosesLayout = true},
    {.name = "Vesko 80 Column File", .key = "vesko80", .makeReader = survey::makeEightyColumnReader},
    {.name = "NGS Blue Book File", .key = "blue-book", .makeReader = survey::makeBlueBookReader},
    {.name = "SDMS File", .key = "sdms", .makeReader = survey::makeSdmsReader},
    {.name = "Trimble Coords.log File  (Trimble PN)", .key = "coords-log", .makeReader = gps::makeCoordsLogReader},
    {.name = "Trimble Coords.log File  (PN in PD)",
     .key = "coords-log-pd",
     .makeReader = gps::makeCoordsLogNumberInDescriptionReader},
    {.name = "Geopak Print Points File",
     .key = "geopak-points",
     .makeReader = survey::makeGeopakReader,
     .openForm = true},
    {.name = "Geodetics Special",
     .key = "geodetics-special",
     .kind = SourceKind::AgencyRun,
     .exportFile = agency::exportGeodeticsSpecial,
     .partner = AgencyPartner{.format = run::target::GeodeticsSpecial, .metres = true}},
    {.name = "KRV Batch Input File",
     .key = "krv-batch",
     .kind = SourceKind::AgencyRun,
     .exportFile = agency::refuseKrvBatch,
     .partner = AgencyPartner{.format = run::target::KrvBatch}},
    {.name = "LMO Batch Input File",
     .key = "lmo-batch",
     .kind = SourceKind::AgencyRun,
     .exportFile = agency::exportLmoBatch,
     .partner = AgencyPartner{.format = run::target::LmoBatch}},
    {.name = "Maptech Export File (*.MXF)",
     .key = "maptech",
     .makeReader = delimited::makeDelimitedReader,
     .prepare = delimited::prepareMaptechSource,
     .forcedForm = AngleForm::DecimalDegrees},
    {.name = "WayPoints+ Format (from Garmin)",
     .key = "waypoints-plus",
     .makeReader = delimited::makeDelimitedReader,
     .prepare = delimited::prepareWayPointsPlusSource,
     .forcedForm = AngleForm::DegreesMinutesSeconds},
    {.name = "Vesko Geodetic Database CSV File",
     .key = "geodetic-database",
     .makeReader = database::makeGeodeticCsvReader,
     .forcedForm = AngleForm::DegreesMinutesSeconds,
     .forcedUnit = run::LengthUnit::usSurveyFeet,
     .missingChoice = database::missingGeodeticCsvChoice,
     .fromDatabase = true},
});

constexpr auto kTargets = std::to_array<TargetFormat>({
    {.name = "Screen only", .key = "screen", .kind = TargetKind::Screen},
    {.name = "Comma Delimited File",
     .key = "delimited",
     .makeWriter = delimited::makeDelimitedWriter,
     .figures = delimited::delimitedFigures,
     .choosesLayout = true},
    {.name = "Vesko 80 Column File",
     .key = "vesko80",
     .makeWriter = survey::makeEightyColumnWriter,
     .figures = survey::eightyColumnFigures},
    {.name = "NGS Blue Book File",
     .key = "blue-book",
     .makeWriter = survey::makeBlueBookWriter,
     .figures = survey::blueBookFigures},
    {.name = "SDMS File",
     .key = "sdms",
     .makeWriter = survey::makeSdmsWriter,
     .figures = taggedFigures,
     .takesOtherLines = true},
    {.name = "Trimble Waypoints File",
     .key = "trimble-waypoints",
     .makeWriter = gps::makeTrimbleWaypointWriter,
     .figures = waypointFigures,
     .latLongQuestion = run::messages::waypointsInLatLong,
     .options = TargetOptions::TrimbleWaypoints,
     .oneCountyZone = true},
    {.name = "DeLorme Import File",
     .key = "delorme",
     .makeWriter = gps::makeDelormeWriter,
     .figures = mapFigures,
     .forcesLatLong = true,
     .options = TargetOptions::DeLorme,
     .oneCountyZone = true},
    {.name = "Geodimeter Raw Control File",
     .key = "geodimeter-control",
     .makeWriter = survey::makeGeodimeterControlWriter,
     .figures = knownLengthFigures,
     .oneCountyZone = true},
    {.name = "Geodimeter Raw Alignment File",
     .key = "geodimeter-alignment",
     .makeWriter = survey::makeGeodimeterAlignmentWriter,
     .figures = planeFigures,
     .oneCountyZone = true},
    {.name = "Geodetics Special",
     .key = "geodetics-special",
     .kind = TargetKind::AgencyRun,
     .partner = AgencyPartner{.format = run::source::GeodeticsSpecial, .metres = true}},
    {.name = "KRV Batch Output File",
     .key = "krv-batch",
     .kind = TargetKind::AgencyRun,
     .partner = AgencyPartner{.format = run::source::KrvBatch}},
    {.name = "LMO Batch Output File",
     .key = "lmo-batch",
     .kind = TargetKind::AgencyRun,
     .partner = AgencyPartner{.format = run::source::LmoBatch}},
    {.name = "Maptech Export File (*.MXF)",
     .key = "maptech",
     .makeWriter = gps::makeMaptechWriter,
     .figures = mapFigures,
     .forcesLatLong = true,
     .options = TargetOptions::Maptech,
     .oneCountyZone = true},
    {.name = "WayPoints+ Format (to Garmin)",
     .key = "waypoints-plus",
     .makeWriter = delimited::makeWayPointsPlusWriter,
     .figures = delimited::delimitedFigures,
     .prepare = delimited::prepareWayPointsPlusTarget,
     .forcesLatLong = true,
     .fileNameEnding = ".txt",
     .fileNameQuestion = run::messages::changeFileName,
     .oneCountyZone = true},
    {.name = "Geopak XY Input File",
     .key = "geopak-xy",
     .makeWriter = survey::makeGeopakXyWriter,
     .figures = lengthFigures,
     .oneCountyZone = true,
     .closingLine = "$ END"},
    {.name = "Geopak NE Input File",
     .key = "geopak-ne",
     .makeWriter = survey::makeGeopakNeWriter,
     .figures = lengthFigures,
     .oneCountyZone = true,
     .closingLine = "$ END"},
    {.name = "KML 2.2 File (*.kml)",
     .key = "kml",
     .makeWriter = exchange::makeKmlWriter,
     .figures = earthFigures,
     .forcesLatLong = true,
     .forcedUnit = run::LengthUnit::metres,
     .fileNameEnding = ".kml",
     .oneCountyZone = true,
     .ownBeginning = true},
    {.name = "GeoJSON File (*.geojson)",
     .key = "geojson",
     .makeWriter = exchange::makeGeoJsonWriter,
     .figures = earthFigures,
     .forcesLatLong = true,
     .forcedUnit = run::LengthUnit::metres,
     .fileNameEnding = ".geojson",
     .otherEnding = ".json",
     .oneCountyZone = true,
     .ownBeginning = true,
     .wantsSourceInfo = true},
    {.name = "LandXML 1.2 Points File (*.xml)",
     .key = "landxml",
     .makeWriter = exchange::makeLandXmlWriter,
     .figures = knownLengthFigures,
     .fileNameEnding = ".xml",
     .otherEnding = ".landxml",
     .oneCountyZone = true,
     .ownBeginning = true},
    {.name = "DXF R12 File (*.dxf)",
     .key = "dxf",
     .makeWriter = exchange::makeDxfWriter,
     .figures = lengthFigures,
     .fileNameEnding = ".dxf",
     .oneCountyZone = true,
     .ownBeginning = true},
});

}  // namespace

run::FormatTables formatTables() {
  return {.sources = kSources, .targets = kTargets};
}

}  // namespace tovak::formats
