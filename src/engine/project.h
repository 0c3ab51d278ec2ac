/// The user-defined project: the one system that the person defines, kept in the data folder.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/catalogue.h"
#include "run/length_unit.h"
#include "run/user_project.h"

struct pj_ctx;

namespace tovak::engine {

struct Project {
  std::string name;
  run::LengthUnit unit = run::LengthUnit::metres;
  CoordinateSystem system;

  bool operator==(const Project&) const = default;
};

struct ProjectResult {
  std::optional<Project> project;
  /// Why the project's file cannot be used, with the file's name; also empty when there is no project at all. It never
  /// holds the "~" that separates the parts of an answer about a project.
  std::string fault;

  bool operator==(const ProjectResult&) const = default;
};

/// Reads the project's file again.
ProjectResult loadProject(pj_ctx* context);
/// Makes a system of a project; a fault begins with `from`, where the project comes from.
ProjectResult makeProject(pj_ctx* context, const run::UserProject& stored, const std::string& from);

/// The check of a definition that is not stored yet.
struct ProjectCheck {
  bool usable = false;
  /// Lines for the person with the place of the definition's origins, or why it cannot be used.
  std::string text;
};

/// `unit` is what the lines give lengths in, unless the definition itself is in U.S. survey feet.
ProjectCheck checkProject(pj_ctx* context, std::string_view definition, run::LengthUnit unit);

}  // namespace tovak::engine
