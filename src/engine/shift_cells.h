/// The datum grid's shifts in the cells visited so far.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "engine/geographic.h"
#include "engine/proj_objects.h"

namespace tovak::engine {

/// The point on the other datum, not finite where `operation` cannot compute it.
Geographic shiftByProj(PJconsts* operation, Direction direction, const Geographic& point);

/// Interpolates as PROJ does, between the shifts that PROJ gives at the corners of a cell, which are computed when the
/// first point falls into it. A cell where this does not give what PROJ computes is left to PROJ, such as one on the
/// edge of the grid or one of a grid whose cells are not a quarter of a degree wide.
class ShiftCells {
 public:
  ShiftCells();

  /// The point on the other datum by `operation`, which must be that of the same grid in every call; nothing where PROJ
  /// has to compute it.
  std::optional<Geographic> forward(PJconsts* operation, const Geographic& point);
  std::optional<Geographic> inverse(PJconsts* operation, const Geographic& point);

 private:
  enum class State { unmet, kept, leftToProj };
  struct Cell {
    State state = State::unmet;
    /// Radians, added to latitude and longitude: southwest, southeast, northwest, northeast.
    std::array<Geographic, 4> corners = {};
  };

  std::optional<Geographic> shiftAt(PJconsts* operation, const Geographic& fromCorner);
  static void meet(PJconsts* operation, Cell& cell, int row, int column);
  static Geographic interpolate(const Cell& cell, double north, double east);

  std::vector<Cell> cells_;  // of the area served and some way around it, from the southwest by rows
};

}  // namespace tovak::engine
