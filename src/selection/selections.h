/// The selections of the main window, and the rules that tie them together.
///
/// Every function is one action of the person: it sets the choice and everything that follows from it. The window shows
/// the result; it decides nothing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "run/formats.h"
#include "run/projection_box.h"
#include "run/run_settings.h"

namespace tovak::selection {

enum class Side { Source, Target };

/// A list whose entries depend on the source file.
struct ChoiceList {
  std::vector<std::string_view> texts;
  int chosen = -1;  ///< position in the list, -1 for none
};

struct Selections {
  /// Always complete for a run, apart from what `runSettings` trims.
  run::RunSettings run;
  /// The source format fixes how latitudes and longitudes are written.
  bool formIsForced = false;

  // What there is to choose from in the geodetic database; the choices themselves are in `run.options.geodeticCsv`.
  ChoiceList horizontals = {};
  ChoiceList verticals = {};
  ChoiceList countyZones = {};
};

/// What the window has to do after a format is chosen.
struct FormatOutcome {
  bool askForFile = false;  ///< a file is needed, and none is named yet
};

/// Whether Execute starts an agency batch run. The source decides; an agency target has already set its source.
bool isAgencyRun(const Selections& selections, const run::FormatTables& formats);

/// Any format but the geodetic database, which comes with its files: see `chooseDatabaseSource`.
FormatOutcome chooseSourceFormat(Selections& selections, const run::FormatTables& formats, std::int16_t format);
FormatOutcome chooseTargetFormat(Selections& selections, const run::FormatTables& formats, std::int16_t format);

/// Puts the target's unit right where its format fixes it, after a unit or projection was chosen by hand.
void takeForcedUnit(Selections& selections, const run::FormatTables& formats);

/// The geodetic database was chosen before its files are: `chooseDatabaseSource` goes on from there, or leaves it.
void beginDatabase(Selections& selections, const run::FormatTables& formats);
/// Falls back to the keyboard when there is no other source.
void leaveForKeyboard(Selections& selections, const run::FormatTables& formats);
bool usesDatabase(const Selections& selections, const run::FormatTables& formats);

void nameFile(Selections& selections, Side side, std::string name);
const std::string& fileName(const Selections& selections, Side side);
void chooseLayout(Selections& selections, Side side, const run::DelimitedFormat& layout);
const run::DelimitedFormat& layoutOf(const Selections& selections, Side side);

void chooseUnit(Selections& selections, Side side, bool metres);
void chooseAdjustment(Selections& selections, run::Adjustment adjustment);
void chooseLatLongForm(Selections& selections, text::AngleForm form);
void chooseVerticalDatum(Selections& selections, run::VerticalDatum datum);
void chooseAccuracy(Selections& selections, text::Accuracy accuracy);
void allowBlankNumbers(Selections& selections, bool allowed);

void suppressReport(Selections& selections, bool suppressed);
void appendReport(Selections& selections, bool append);
void printReport(Selections& selections, bool print);
void nameReport(Selections& selections, std::string fileName);
void describeReport(Selections& selections, std::string description);

/// The code and unit that a side's projection box stands for.
run::ProjectionBox projectionBox(const Selections& selections, Side side);
/// The box's text was changed by hand. Gives what the box shows from then on while it is typed into: the text as it
/// stands, with the mark of metres added when it is missing and metres remain chosen. `overNumber`: the number was
/// selected and typed over.
std::string typeProjection(Selections& selections, Side side, std::string_view text, bool overNumber = false);
/// A system was picked from the list; the unit does not change.
void pickProjection(Selections& selections, Side side, std::int16_t code);

/// The person's choices of what the selections are converted with: files named, formats listed.
run::RunSettings runSettings(const Selections& selections, const run::FormatTables& formats);

/// After a run with the settings of `runSettings`: what the run changed of them, the dialogs' choices included. The
/// projections, and file names that the run did not need, stay.
void takeBack(Selections& selections, const run::RunSettings& after);

/// The selections a window opens with: those from a command line, or the program's defaults.
Selections selectionsFrom(const run::RunSettings& settings, const run::FormatTables& formats);

}  // namespace tovak::selection
