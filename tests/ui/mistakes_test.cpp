// Mistakes that people make at the window, and what they are told: with the conversion engine itself and the areas of
// its systems. The points are control points computed outside this program.
#include "run/engine_loader.h"
#include "support/environment.h"
#include "ui/main_window.h"

namespace tovak::ui {
namespace {

using text::AngleForm;

/// What becomes of the target file, which holds "older" before the run where it is there.
enum class Outcome { Written, NoFile, OlderKept };

/// The sides are those of a run from state plane South in metres to latitude and longitude, unless a row says
/// otherwise.
struct Mistake {
  const char* what;
  std::string source;  ///< what the source file holds
  const char* said;    ///< a part of what the boxes say
  Outcome outcome = Outcome::Written;
  std::int16_t sourceFormat = run::source::CommaDelimited;
  std::int16_t targetFormat = run::target::CommaDelimited;
  const char* projection = "4M";  ///< as it is typed
  const char* targetProjection = "0";
  AngleForm form = AngleForm::DecimalDegrees;
  const char* sourceName = "in.csv";
  const char* targetName = "out.csv";
  bool older = false;    ///< there is a target before the run
  bool replace = false;  ///< and the person wants it replaced
};

const char* const kPoint = "384833.340,914678.821,BEACON HILL,102,360.977\n";

const Mistake kMistakes[] = {
    {.what = "swapped northing and easting",
     .source = "914678.821,384833.340,A,1\n",
     .said = "1 point lies outside the usual area of State plane South, NAD83, in line 1"},
    {.what = "metres as feet", .source = kPoint, .said = "Swapped or wrong unit?", .projection = "4"},
    {.what = "feet as metres", .source = "1262574.051,3000908.765,A,1\n", .said = "Swapped or wrong unit?"},
    {.what = "text after a number", .source = "384833.340x,914678.821\n", .said = "1 point has text after a number"},
    {.what = "another delimiter",
     .source = "384833.340;914678.821;A\n",
     .said = "(1 without delimiter, first in line 1)"},
    {.what = "no point for an older target",
     .source = "384833.340;914678.821;A\n",
     .said = "out.csv was left as it was.",
     .outcome = Outcome::OlderKept,
     .older = true,
     .replace = true},
    {.what = "the file of another zone",
     .source = std::string("$Tovak#3M$ NAD83  (Meters)\n") + kPoint,
     .said = "1 file says in its first line that it holds State plane Central, NAD83 in metres"},
    {.what = "packed angles as decimal degrees",
     .source = "453314.57,-923152.97,A,1\n",
     .said = "outside the area served",
     .projection = "0",
     .targetProjection = "4M"},
    {.what = "decimal degrees as packed angles",
     .source = "456840.474,-925313.813,A,1\n",
     .said = "(decimal degrees are read with -A4)",
     .projection = "0",
     .targetProjection = "4M",
     .form = AngleForm::DegreesMinutesSeconds},
    {.what = "small decimal degrees as packed angles",
     .source = "45.554047374,-92.531381255,A,1\n",
     .said = "1 point, all there are, was read as DD.MMSSsss",
     .projection = "0",
     .targetProjection = "4M",
     .form = AngleForm::DegreesMinutesSeconds},
    {.what = "southern hemisphere",
     .source = "S45 33 14.57,W92 31 52.97,A,1\n",
     .said = "1 for an angle",
     .projection = "0",
     .targetProjection = "4M"},
    {.what = "sixty minutes",
     .source = "45 60 14.57,-92 31 52.97,A,1\n",
     .said = "not below 60",
     .projection = "0",
     .targetProjection = "4M"},
    {.what = "no source name",
     .source = kPoint,
     .said = "Source File Was Not Specified.",
     .outcome = Outcome::NoFile,
     .sourceName = ""},
    {.what = "no target name",
     .source = kPoint,
     .said = "Target File Was Not Specified.",
     .outcome = Outcome::NoFile,
     .targetName = ""},
    {.what = "a target that exists",
     .source = kPoint,
     .said = "exists already. Do you want to replace it?",
     .outcome = Outcome::OlderKept,
     .older = true},
    {.what = "the source as target",
     .source = kPoint,
     .said = "Source file has same name as target file.",
     .outcome = Outcome::NoFile,
     .targetName = "in.csv"},
    {.what = "an unknown projection",
     .source = kPoint,
     .said = "The source has an unknown projection",
     .outcome = Outcome::NoFile,
     .projection = "south"},
    {.what = "a project that is not set up",
     .source = kPoint,
     .said = "The user-defined project cannot be used.",
     .outcome = Outcome::NoFile,
     .targetProjection = "263"},
    {.what = "WayPoints+ in state plane",
     .source = kPoint,
     .said = "This format holds NAD83 latitude and longitude only.",
     .outcome = Outcome::NoFile,
     .targetFormat = run::target::WayPointsPlus,
     .targetProjection = "4"},
    {.what = "Blue Book in feet",
     .source = kPoint,
     .said = "Units must be meters in NGS Blue Book files",
     .outcome = Outcome::NoFile,
     .targetFormat = run::target::BlueBook,
     .targetProjection = "4"},
    {.what = "blank columns",
     .source = "0104DEPOT YARD                                         BM 987.15\n",
     .said = "its northing and easting are both 0",
     .sourceFormat = run::source::Vesko80Column,
     .projection = "4"},
    {.what = "a number too long for its columns",
     .source = "384833.340,914678.821,A,123456,360.977\n",
     .said = "1 point has a field that is too wide for its columns",
     .targetFormat = run::target::Vesko80Column,
     .targetProjection = "4M"},
    {.what = "heights in another unit",
     .source = "384833.340,914678.821,A,1,360.977,-28.5,332.4\n",
     .said = "1 point has a geoid or ellipsoid height that stays in the source's unit",
     .targetProjection = "4"},
    {.what = "a quotation mark in a name",
     .source = "0104DEPOT 6\" PIPE                 2523547.767907553.363BM 987.15  MONQRDT23CXXXX\n",
     .said = "1 point has a text with the delimiter or a quotation mark",
     .sourceFormat = run::source::Vesko80Column,
     .projection = "4"},
    {.what = "two points as one of Coords.log",
     .source =
         "Datum:  NAD-83\n\nPOINT     COORDINATES\n-----\n0101A\n     Y=                                       "
         "384833.340\n     X=                                       914678.821\n     Y=                               "
         "        384833.341\n     X=                                       914678.822\n\n",
     .said = "two points may have run together",
     .sourceFormat = run::source::CoordsLog},
    {.what = "two points as one of SDMS",
     .source = "HD:NAD83\n\nAC:CP\nPN:1\nYC:384833.340\nXC:914678.821\nYC:384833.341\nXC:914678.822\n",
     .said = "two points may have run together",
     .sourceFormat = run::source::Sdms},
};

class Mistakes : public MainWindow {
 protected:
  Mistakes() {
    start.engine = created.engine.get();
    start.formatTables.areas = &*areas;
    start.settings.reportEnabled = false;
  }

  void make(const Mistake& row) {
    run::RunSettings& settings = start.settings;
    settings.sourceFormat = row.sourceFormat;
    settings.targetFormat = row.targetFormat;
    settings.latLongForm = row.form;
    settings.source.fileName = settings.target.fileName = {};
    folder.write("in.csv", row.source);
    if (*row.sourceName != '\0') settings.source.fileName = folder.file(row.sourceName);
    if (*row.targetName != '\0') settings.target.fileName = folder.file(row.targetName);
    std::filesystem::remove(folder.file("out.csv"));
    if (row.older) folder.write("out.csv", "older\n");
    if (row.replace) dialogs.expectBox(QMessageBox::Yes);
    open();
    type("txtSourceProjection", row.projection);
    type("txtTargetProjection", row.targetProjection);
    click("cmdExecute");
  }
  std::string told() const {
    std::string all;
    for (const auto& box : dialogs.boxes) all += box.title + ": " + box.text + "\n" + box.detail + "\n";
    return all;
  }
  Outcome outcome() const {
    const std::string target = tests::contentsOf(folder.file("out.csv"));
    if (target == "(no file)") return Outcome::NoFile;
    return target == "older\n" ? Outcome::OlderKept : Outcome::Written;
  }

  const tests::EnvironmentVariable data{"APPDATA", folder.file("AppData")};
  const run::EngineResult created = run::createEngine(run::kEngineIdentifier);
  const text::Result<run::UsualAreas> areas = run::readUsualAreas(TOVAK_SOURCE_FOLDER "/../data/areas.txt");
};

TEST_F(Mistakes, AreNotPassedInSilence) {
  ASSERT_NE(start.engine, nullptr) << created.reason;
  ASSERT_TRUE(areas) << areas.error;
  for (const Mistake& row : kMistakes) {
    SCOPED_TRACE(row.what);
    dialogs.boxes.clear();
    make(row);
    EXPECT_NE(told().find(row.said), std::string::npos) << told();
    EXPECT_EQ(outcome(), row.outcome) << tests::contentsOf(folder.file("out.csv"));
  }
}

}  // namespace
}  // namespace tovak::ui
