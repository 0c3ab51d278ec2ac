/// The selections of the main window, and the rules that tie them together.
///
/// Every function is one action of the person: it sets what was chosen and everything that the choice forces. The
/// window shows the result; it decides nothing.
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
  /// Complete for a run at any time, but for what `runSettings` trims.
  run::RunSettings run;

  // What there is to choose from in the geodetic database; the choices themselves are in `run.geodeticCsv`.
  ChoiceList horizontals = {};
  ChoiceList verticals = {};
  ChoiceList countyZones = {};
};

/// What the window has to do after a format was chosen.
struct FormatOutcome {
  bool askForFile = false;  ///< a file is needed, and none is named yet
};

/// Whether Execute starts an agency batch run. The source decides; a target of that kind has brought its source along.
bool isAgencyRun(const Selections& selections, const run::FormatTables& formats);

/// Any format but the geodetic database, which comes with its files: see `chooseDatabaseSource`.
FormatOutcome chooseSourceFormat(Selections& selections, const run::FormatTables& formats, std::int16_t format);
FormatOutcome chooseTargetFormat(Selections& selections, const run::FormatTables& formats, std::int16_t format);

void chooseUnit(Selections& selections, Side side, bool metres);
void chooseAdjustment(Selections& selections, run::Adjustment adjustment);
void chooseLatLongForm(Selections& selections, text::AngleForm form);

/// The code and unit that a side's projection box stands for.
run::ProjectionBox projectionBox(const Selections& selections, Side side);
/// The box's text was changed by hand. Gives what the box shows from then on while it is typed into: the text as it
/// stands, with the mark of metres when it has lost it and metres remain chosen.
std::string typeProjection(Selections& selections, Side side, std::string_view text);
/// A system was picked from the list; the unit stays.
void pickProjection(Selections& selections, Side side, std::int16_t code);

/// The person's choices of what the selections are converted with: files named, formats listed.
run::RunSettings runSettings(const Selections& selections, const run::FormatTables& formats);

/// After a run with the settings of `runSettings`: what the run changed of them, the dialogs' choices included. The
/// projections, and file names that the run did not need, stay.
void takeBack(Selections& selections, const run::RunSettings& after);

/// The selections a window opens with: those a command line made, or the program's defaults.
Selections selectionsFrom(const run::RunSettings& settings);

}  // namespace tovak::selection
