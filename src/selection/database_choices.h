/// The lists beside the geodetic database source: data set, heights and county zone.
#pragma once

#include <string>
#include <string_view>

#include "formats/database/sheet_scan.h"
#include "selection/selections.h"

namespace tovak::selection {

/// Fills the three lists with what a scan has found. No data set is chosen; the first of the heights is, and so is a
/// single zone.
void fillDatabaseLists(Selections& selections, const formats::database::SheetScan& scan);

/// Chooses a data set by its text, and with it the source projection and the adjustment.
void chooseHorizontalReference(Selections& selections, std::string_view text);
/// Heights set the label of the vertical datum. Any text but "NAVD88" and "NGVD29" changes nothing.
void chooseVerticalReference(Selections& selections, std::string_view text);
/// Any text but those of the four zones chooses no zone.
void chooseCountyZone(Selections& selections, std::string_view text);

/// The line shown in place of the source's projection box; empty until a data set is chosen.
std::string databaseProjectionLine(const Selections& selections);

/// What the database's file box shows: the chosen file, and how many more there are.
std::string databaseFileText(const Selections& selections);

}  // namespace tovak::selection
