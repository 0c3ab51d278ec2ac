/// The delimited formats that come with the program.
#pragma once

#include "run/delimited_format.h"
#include "run/run_settings.h"

namespace tovak::formats::delimited {

/// "Tovak Standard", entry 0 of every table; it cannot be edited.
run::DelimitedFormat standardFormat();

/// The Maptech source layout: latitude, longitude, name, number, comment, rest.
void prepareMaptechSource(run::RunSettings& settings);

/// The WayPoints+ source layout: two markers, number, latitude, longitude, date, time, name.
void prepareWayPointsPlusSource(run::RunSettings& settings);

/// The WayPoints+ target layout, latitudes and longitudes as DD.MMSSsss.
void prepareWayPointsPlusTarget(run::RunSettings& settings);

}  // namespace tovak::formats::delimited
