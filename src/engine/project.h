/// The user-defined project: the one system that the person defines, kept in the data folder.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/catalogue.h"
#include "run/length_unit.h"

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
  /// Why the project's file cannot be used, with the file's name; empty when there is no project at all too. It never
  /// holds the "~" by which the answers about a project are told apart.
  std::string fault;

  bool operator==(const ProjectResult&) const = default;
};

/// Reads the project's file anew.
ProjectResult loadProject(pj_ctx* context);

/// What becomes of a definition that is not stored yet.
struct ProjectCheck {
  bool usable = false;
  /// Where the definition's origins lie, in lines for the person; or why it cannot be used.
  std::string text;
};

ProjectCheck checkProject(pj_ctx* context, std::string_view definition, run::LengthUnit unit);

}  // namespace tovak::engine
