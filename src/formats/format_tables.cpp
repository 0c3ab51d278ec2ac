#include "formats/format_tables.h"

#include <array>

#include "formats/agency/geodetics_special.h"
#include "formats/agency/krv_batch.h"
#include "formats/agency/lmo_export.h"
#include "formats/database/geodetic_csv_reader.h"
#include "formats/delimited/built_in_formats.h"
#include "formats/delimited/delimited_reader.h"
#include "formats/delimited/delimited_writer.h"
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
#include "run/keyboard_reader.h"

namespace tovak::formats {
namespace {

using run::SourceFormat;
using run::SourceKind;
using run::TargetFormat;
using run::TargetKind;
using run::TargetOptions;

constexpr std::array<SourceFormat, 14> kSources = {{
    {.name = "Keyboard", .kind = SourceKind::Keyboard, .makeReader = run::makeKeyboardReader},
    {.name = "Comma Delimited File", .makeReader = makeDelimitedReader},
    {.name = "Vesko 80 Column File", .makeReader = makeEightyColumnReader},
    {.name = "NGS Blue Book File", .makeReader = makeBlueBookReader, .packedAngles = true},
    {.name = "SDMS File", .makeReader = makeSdmsReader, .packedAngles = true},
    {.name = "Trimble Coords.log File  (Trimble PN)", .makeReader = makeCoordsLogReader, .packedAngles = true},
    {.name = "Trimble Coords.log File  (PN in PD)",
     .makeReader = makeCoordsLogNumberInDescriptionReader,
     .packedAngles = true},
    {.name = "Geopak Print Points File", .makeReader = makeGeopakReader},
    {.name = "Geodetics Special", .kind = SourceKind::AgencyRun, .exportFile = exportGeodeticsSpecial},
    {.name = "KRV Batch Input File", .kind = SourceKind::AgencyRun, .exportFile = refuseKrvBatch},
    {.name = "LMO Batch Input File", .kind = SourceKind::AgencyRun, .exportFile = exportLmoBatch},
    {.name = "Maptech Export File (*.MXF)", .makeReader = makeDelimitedReader, .prepare = prepareMaptechSource},
    {.name = "WayPoints+ Format (from Garmin)",
     .makeReader = makeDelimitedReader,
     .prepare = prepareWayPointsPlusSource},
    {.name = "Vesko Geodetic Database CSV File", .makeReader = makeGeodeticCsvReader},
}};

constexpr std::array<TargetFormat, 16> kTargets = {{
    {.name = "Screen only", .kind = TargetKind::Screen},
    {.name = "Comma Delimited File", .makeWriter = makeDelimitedWriter},
    {.name = "Vesko 80 Column File", .makeWriter = makeEightyColumnWriter},
    {.name = "NGS Blue Book File", .makeWriter = makeBlueBookWriter},
    {.name = "SDMS File", .makeWriter = makeSdmsWriter, .takesOtherLines = true},
    {.name = "Trimble Waypoints File",
     .makeWriter = makeTrimbleWaypointWriter,
     .options = TargetOptions::TrimbleWaypoints},
    {.name = "DeLorme Import File",
     .makeWriter = makeDelormeWriter,
     .forcesLatLong = true,
     .options = TargetOptions::DeLorme},
    {.name = "Geodimeter Raw Control File", .makeWriter = makeGeodimeterControlWriter},
    {.name = "Geodimeter Raw Alignment File", .makeWriter = makeGeodimeterAlignmentWriter},
    {.name = "Geodetics Special", .kind = TargetKind::AgencyRun},
    {.name = "KRV Batch Output File", .kind = TargetKind::AgencyRun},
    {.name = "LMO Batch Output File", .kind = TargetKind::AgencyRun},
    {.name = "Maptech Export File (*.MXF)",
     .makeWriter = makeMaptechWriter,
     .forcesLatLong = true,
     .options = TargetOptions::Maptech},
    {.name = "WayPoints+ Format (to Garmin)",
     .makeWriter = makeWayPointsPlusWriter,
     .prepare = prepareWayPointsPlusTarget,
     .forcesLatLong = true,
     .fileNameEnding = ".txt"},
    {.name = "Geopak XY Input File", .makeWriter = makeGeopakXyWriter, .closingLine = "$ END"},
    {.name = "Geopak NE Input File", .makeWriter = makeGeopakNeWriter, .closingLine = "$ END"},
}};

}  // namespace

run::FormatTables formatTables() {
  return {.sources = kSources, .targets = kTargets};
}

}  // namespace tovak::formats
