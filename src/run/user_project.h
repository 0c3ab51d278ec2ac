/// The user-defined project's file, which the window writes and the conversion engine reads.
///
/// Lines of the file, beside empty ones and remarks that begin with "#":
///
///     name = Bridge 42
///     definition = +proj=tmerc +lat_0=45 +lon_0=-93.5 +k=1 +x_0=30000 +y_0=20000 +ellps=GRS80
///     unit = metres
///
/// each once, in any order; the unit is "metres" or "feet" (U.S. survey feet). What a definition may be is the engine's
/// business.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace tovak::run {

/// Reading WKT takes time with the square of its length.
inline constexpr std::size_t kLongestDefinition = 8192;

struct UserProject {
  std::string name;
  std::string definition;
  bool metres = true;  ///< else U.S. survey feet
};

struct UserProjectResult {
  std::optional<UserProject> project;
  std::string error;  ///< file, line and reason; empty when there is no such file too
};

/// The file of this user, "project.txt" in the data folder; empty without a data folder.
std::string userProjectFile();

UserProjectResult readUserProject(const std::string& fileName);

/// Why the name or the shape of the definition cannot stand in the file, empty when they can.
std::string faultOf(const UserProject& project);

/// Replaces the file by a project without fault. False with the reason in `error`; the old file is then still there.
bool writeUserProject(const std::string& fileName, const UserProject& project, std::string& error);

}  // namespace tovak::run
