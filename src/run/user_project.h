/// The user-defined project's file, which the window writes and the conversion engine reads.
///
/// Lines of the file, beside empty ones and remarks that begin with "#":
///
///     name = Bridge 42
///     definition = +proj=tmerc +lat_0=45 +lon_0=-93.5 +k=1 +x_0=30000 +y_0=20000 +ellps=GRS80
///     unit = metres
///     datum = NAD83
///
/// each once, in any order; the unit is "metres" or "feet" (U.S. survey feet); the datum, "NAD27" or "NAD83", may be
/// missing. The engine decides which definitions are valid; one that is itself in U.S. survey feet (+units=us-ft) goes
/// with the unit "feet" only.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "text/result.h"

namespace tovak::run {

/// The time to read WKT grows with the square of its length.
inline constexpr std::size_t kLongestDefinition = 8192;

struct UserProject {
  std::string name;
  std::string definition;
  bool metres = true;  ///< else U.S. survey feet
  /// "NAD27" or "NAD83", what the engine found with the definition; empty where it is not known.
  std::string datum = {};

  bool operator==(const UserProject&) const = default;
};

/// The file of this user, "project.txt" in the data folder; empty without a data folder.
std::string userProjectFile();

/// The project of a file, nothing where there is no such file, or file, line and reason.
text::Result<std::optional<UserProject>> readUserProject(const std::string& fileName);

/// Why the name or the shape of the definition cannot stand in the file, empty when they can.
std::string faultOf(const UserProject& project);

/// What the engine's `GetProjectionFromText` is asked about a project's definition: the projection text the project
/// would have, a line end, and the definition. A text from a data file never looks like that.
std::string definitionRequest(const UserProject& project);

/// What the engine's `GetProjectionFromText` is told to take a project of a job for the user-defined one in place of
/// the project in the data folder, or, with nothing, to take that again: the definition request with name and datum in
/// lines behind it.
std::string projectRequest(const std::optional<UserProject>& project);

/// The datum in the engine's answer to a `definitionRequest`, empty where its first line does not give one.
std::string_view toldDatum(std::string_view answer);
inline constexpr std::string_view kToldDatum = "Datum ";  ///< the text before it

/// Whether the answer says, in its second line, that the definition itself is in U.S. survey feet. Then the project's
/// unit is the same.
bool toldFeet(std::string_view answer);
inline constexpr std::string_view kToldFeet = "Unit U.S. survey feet";

/// Replaces the file with a valid project. False with the reason in `error`; the old file is then still there.
bool writeUserProject(const std::string& fileName, const UserProject& project, std::string& error);

}  // namespace tovak::run
