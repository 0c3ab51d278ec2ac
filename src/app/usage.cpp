#include "app/usage.h"

#include <cstdint>
#include <string_view>

#include "run/projection_code.h"
#include "run/system_data.h"
#include "text/number.h"

namespace tovak::app {
namespace {

constexpr std::string_view kSwitches = R"(Tovak )" TOVAK_VERSION
                                       R"( converts survey points between map projections and datums.

  tovak SOURCE TARGET -B -SFn -SPn -SUx -TFn -TPn -TUx [-An] [-Fn] [-Yyear]

For example, latitudes and longitudes in decimal degrees to UTM zone 15 in metres:

  tovak control.csv utm.csv -B -SF2 -SP1 -SUE -A4 -TF2 -TP2 -TUM

  SOURCE TARGET  the two files; a name with blanks goes into quotes: "north side.csv". A name with a blank and a
                 quotation mark in it is refused
  -B      convert now; ends with a line that accounts for every record
  -Q      convert now and say nothing when all goes well; otherwise
          it ends with the same account
  -SFn    source format, a number of the list below              -SF2   Comma Delimited File
  -TFn    target format, a number of the list below              -TF2   Comma Delimited File
  -SPn    source projection, a number of the list below          -SP1   latitude and longitude on NAD83
  -TPn    target projection, a number of the list below          -TP5   state plane South on NAD83
  -SUx    source units, E (U.S. survey feet) or M (metres);      -SUE
          for latitude and longitude the unit of the elevation
  -TUx    target units, likewise                                 -TUM
  -An     latitudes and longitudes of the source are             -A4    decimal degrees
          1, 2, 3  degrees, minutes, seconds: DDMMSS.sss or DD.MMSSsss (when not given)
          4        decimal degrees
          5        degrees and decimal minutes: DDMM.mmmm
  -Fn     accuracy of written coordinates, for the target        -F1    .001 units (when not given)
          formats that ask for it: 1 .001 units, 2 .01 units,
          3 .1 units, 4 1 unit, 5 10 units, 6 100 units
  -Rname  report file of the window, the one of the day          -R"my report.rpt"
          without a name; a batch run writes none without a job
  -Yyear  NAD83 adjustment named in the target file: 1986,       -Y2011
          1996, 2007 or 2011; must be the last on the line
  -H      this page; also --help

A first name that ends in ".tovak" is a job, which the window has saved. What follows replaces what the job says; of
several jobs each is run, with a line of account on standard output, and the exit status is the smallest but 0:

  tovak night.tovak -B
  tovak night.tovak today.csv today_out.csv -Q
  tovak north.tovak south.tovak -Q

The help switch is found anywhere in the line, even inside a file name: a command line with "my-house.csv" shows this
page and converts nothing. Only in the folder names of an existing file, as in "/my-home/points.csv", does it not
count.

The target appears whole or not at all. When no point was converted, an older target stays as it was. "/dev/stdout" and
"/dev/fd/3" are written at their current place, so "tovak in.csv /dev/stdout ... >>all.csv" adds to a file.

Doubtful points are converted, and counted after the account with the line of the first: text after a number, points
outside the usual area of their system, a record broken into two lines, and more.

Exit status: 0 finished; 1 stopped by a message; 2 command line problems; 3 finished, but not everything was converted;
4 everything was converted, but there are doubts.
)";

constexpr std::string_view kNotes = R"(
Notes on formats:
  Vesko 80 Column File          as a target use -F4 or coarser: decimals of the northing need the columns of the code,
                                and the rest of such a point goes to a line of its own
  NGS Blue Book File            as a target it has the northing first, as a source the easting
  SDMS File                     as a target it holds no descriptions and no comments of points
  Geopak Print Points File      commas in numbers separate thousands, as in 1,234,567.89, and "." is the decimal point
  Geopak XY and NE Input File   a double quote in a description is written as it is; replace it in the source when the
                                program that runs the commands takes it for the end of the description
  Geodimeter Raw Control File   an elevation of 0 is an empty value: 39=
  KML and GeoJSON File          elevations in metres whatever the units; one of 0 is left out, as in LandXML
  LandXML and DXF File          plane coordinates only; in DXF a point without an elevation lies at 0
)";

/// A list entry: the number right-aligned, then the name.
void appendEntry(std::string& page, std::int64_t number, std::string_view name) {
  std::string digits;
  text::appendWhole(digits, number);
  page.append(6 - digits.size(), ' ');
  page += digits + "  ";
  page += name;
  page += '\n';
}

template <typename Formats>
void appendFormats(std::string& page, std::string_view heading, const Formats& formats) {
  page += '\n';
  page += heading;
  std::int64_t number = 0;
  for (const auto& format : formats) appendEntry(page, ++number, format.name);
}

void appendProjections(std::string& page, run::ConversionEngine& engine) {
  for (std::int16_t code = 0; code <= run::kLastProjectionCode; ++code) {
    // Batch runs have the user-defined project only from a job.
    const std::string name = code == run::kUserDefinedProject ? std::string() : run::systemName(engine, code);
    if (!name.empty()) appendEntry(page, code + 1, name);
  }
}

}  // namespace

std::string usagePage(const run::FormatTables& formats, run::ConversionEngine* engine, const std::string& reason) {
  std::string page(kSwitches);
  appendFormats(page, "Source formats:\n", formats.sources);
  appendFormats(page, "Target formats:\n", formats.targets);
  page += kNotes;
  page += "\nProjections:\n";
  if (engine != nullptr) {
    appendProjections(page, *engine);
  } else {
    page += "  not known, since the engine could not be loaded: " + reason + '\n';
  }
  return page;
}

}  // namespace tovak::app
