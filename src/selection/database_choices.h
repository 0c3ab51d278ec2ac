/// The lists beside the geodetic database source: data set, heights and county zone.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "selection/selections.h"

namespace tovak::selection {

/// The texts of the list of data sets, and of that of heights.
std::span<const std::string_view> horizontalReferences();
std::span<const std::string_view> verticalReferences();

/// Chooses a data set by its text, and with it the source projection and the adjustment.
void chooseHorizontalReference(Selections& selections, std::string_view text);
/// Any text but "NAVD88" and "NGVD29" changes nothing.
void chooseVerticalReference(Selections& selections, std::string_view text);
/// Any text but those of the four zones chooses no zone.
void chooseCountyZone(Selections& selections, std::string_view text);

/// The line that stands in the place of the source's projection box.
std::string databaseProjectionLine(const Selections& selections);

/// What the database's file box shows: the first file, and how many more there are.
std::string databaseFileText(const std::vector<std::string>& files);

}  // namespace tovak::selection
