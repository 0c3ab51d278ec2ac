/// Job files: `NAME.tovak`, UTF-8, a first line that names kind and version, then lines `key = value`, empty lines and
/// remarks that begin with "#":
///
///     Tovak job 1
///     source format = delimited
///     source file = today.csv
///     source projection = 0 Latitude and Longitude, NAD83
///     source unit = feet
///     source delimiter = ,
///     source fields = YCoord-Northing-Latitude, XCoord/Easting/Longitude, Number
///     ...
///
/// each key once, in any order, names and words in either letter case. The keys are those of `jobKeys`. A job is read
/// whole or refused. Where a key may be missing its usual value holds:
///
/// - the files: none; the command line may name them, and a run without them is refused;
/// - the names of the layouts, "angles chosen" and what a layout says about files that are not written: without meaning
///   for the points;
/// - the options of waypoint, DeLorme and Maptech files: those of a fresh window;
/// - the choices of the geodetic database: none, and a run asks for what it needs;
/// - the report: none; when it is on and has no file, that of the day.
///
/// The layout of a delimited source or target and the user-defined project are needed where they are used. Everything
/// else is always needed: it decides coordinates, numbers, or what labels say about them.
#pragma once

#include <string>

#include "run/formats.h"
#include "selection/job.h"
#include "text/result.h"

namespace tovak::selection {

inline constexpr std::string_view kJobEnding = ".tovak";

/// Whether a file is a job by its name.
bool isJobName(std::string_view fileName);

/// The error has the file's name, and the line where there is one. File names come back as absolute paths, relative
/// ones from the job's folder.
text::Result<Job> readJob(const std::string& fileName, const run::FormatTables& formats);

/// The text of a job that is kept in a file of that name. The error says what of it cannot be kept, such as a
/// projection without a number.
text::Result<std::string> jobText(const Job& job, const std::string& fileName, const run::FormatTables& formats);

/// Writes the file whole or not at all. False with the reason in `error`; an older file is then still there.
bool writeJob(const std::string& fileName, const Job& job, const run::FormatTables& formats, std::string& error);

}  // namespace tovak::selection
