#include "engine/shift_cells.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "engine/catalogue.h"

namespace tovak::engine {
namespace {

constexpr int kCellsPerDegree = 4;
constexpr double kCellsPerRadian = kCellsPerDegree * kDegreesPerRadian;

/// The southwest corner of the grid, from which PROJ counts, in degrees.
constexpr double kGridSouth = 20.0;
constexpr double kGridWest = -131.0;
constexpr Geographic kCorner = {.latitude = kGridSouth * kRadiansPerDegree, .longitude = kGridWest * kRadiansPerDegree};

/// The cells of the area served and a degree around it.
constexpr int kFirstRow = static_cast<int>(kAreaServed.south - 1.0 - kGridSouth) * kCellsPerDegree;
constexpr int kRows = static_cast<int>(kAreaServed.north - kAreaServed.south + 2.0) * kCellsPerDegree;
constexpr int kFirstColumn = static_cast<int>(kAreaServed.west - 1.0 - kGridWest) * kCellsPerDegree;
constexpr int kColumns = static_cast<int>(kAreaServed.east - kAreaServed.west + 2.0) * kCellsPerDegree;

/// `row` and `column` are counted in cells from the first ones.
Geographic positionOf(double row, double column) {
  return {.latitude = (kGridSouth + (kFirstRow + row) / kCellsPerDegree) * kRadiansPerDegree,
          .longitude = (kGridWest + (kFirstColumn + column) / kCellsPerDegree) * kRadiansPerDegree};
}

Geographic sum(const Geographic& one, const Geographic& other) {
  return {.latitude = one.latitude + other.latitude, .longitude = one.longitude + other.longitude};
}

Geographic difference(const Geographic& one, const Geographic& other) {
  return {.latitude = one.latitude - other.latitude, .longitude = one.longitude - other.longitude};
}

bool isShorter(const Geographic& distance, double limit) {
  return std::fabs(distance.latitude) < limit && std::fabs(distance.longitude) < limit;
}

/// PROJ holds the shifts in single precision, so they can be recovered from the rounded position they led to.
Geographic asInGrid(const Geographic& shift) {
  return {.latitude = static_cast<float>(shift.latitude), .longitude = static_cast<float>(shift.longitude)};
}

}  // namespace

Geographic shiftByProj(PJconsts* operation, Direction direction, const Geographic& point) {
  const ProjPair pair = transform(operation, direction, {.x = point.longitude, .y = point.latitude});
  return {.latitude = pair.y, .longitude = pair.x};
}

ShiftCells::ShiftCells() : cells_(static_cast<std::size_t>(kRows) * kColumns) {}

Geographic ShiftCells::interpolate(const Cell& cell, double north, double east) {
  const std::array<double, 4> weights = {(1.0 - east) * (1.0 - north), east * (1.0 - north), (1.0 - east) * north,
                                         east * north};
  Geographic shift;
  for (std::size_t i = 0; i < weights.size(); ++i) {
    shift.latitude += weights[i] * cell.corners[i].latitude;
    shift.longitude += weights[i] * cell.corners[i].longitude;
  }
  return shift;
}

void ShiftCells::meet(PJconsts* operation, Cell& cell, int row, int column) {
  constexpr double kTolerance = 5e-16;  // radians: two units in the last place of a longitude
  for (std::size_t i = 0; i < cell.corners.size(); ++i) {
    const Geographic corner = positionOf(row + static_cast<int>(i / 2), column + static_cast<int>(i % 2));
    cell.corners[i] = asInGrid(difference(shiftByProj(operation, Direction::forward, corner), corner));
  }
  constexpr Geographic kTried[] = {{0.5, 0.5}, {0.2, 0.6}, {0.9, 0.3}};  // parts of the cell
  const bool agrees = std::ranges::all_of(kTried, [&](const Geographic& part) {
    const Geographic point = positionOf(row + part.latitude, column + part.longitude);
    const Geographic shifted = sum(point, interpolate(cell, part.latitude, part.longitude));
    return isShorter(difference(shifted, shiftByProj(operation, Direction::forward, point)), kTolerance);
  });
  cell.state = agrees ? State::kept : State::leftToProj;
  if (!agrees) takeError(operation);
}

std::optional<Geographic> ShiftCells::shiftAt(PJconsts* operation, const Geographic& fromCorner) {
  const double north = fromCorner.latitude * kCellsPerRadian - kFirstRow;
  const double east = fromCorner.longitude * kCellsPerRadian - kFirstColumn;
  if (!(north >= 0.0 && north < kRows && east >= 0.0 && east < kColumns)) return std::nullopt;
  const int row = static_cast<int>(north);
  const int column = static_cast<int>(east);
  Cell& cell = cells_[static_cast<std::size_t>(row) * kColumns + static_cast<std::size_t>(column)];
  if (cell.state == State::unmet) meet(operation, cell, row, column);
  if (cell.state == State::leftToProj) return std::nullopt;
  return interpolate(cell, north - row, east - column);
}

std::optional<Geographic> ShiftCells::forward(PJconsts* operation, const Geographic& point) {
  const std::optional<Geographic> shift = shiftAt(operation, difference(point, kCorner));
  return shift ? std::optional(sum(point, *shift)) : std::nullopt;
}

// Each step is closer by the slope of the shifts, a factor of some hundred thousand.
std::optional<Geographic> ShiftCells::inverse(PJconsts* operation, const Geographic& point) {
  constexpr int kMostSteps = 10;
  constexpr double kNear = 1e-12;  // radians; a step that is shorter is the last that counts
  const Geographic aim = difference(point, kCorner);
  Geographic from = aim;
  for (int step = 0; step < kMostSteps; ++step) {
    const std::optional<Geographic> shift = shiftAt(operation, from);
    if (!shift) break;
    const Geographic off = difference(sum(from, *shift), aim);
    from = difference(from, off);
    if (isShorter(off, kNear)) return sum(from, kCorner);
  }
  return std::nullopt;
}

}  // namespace tovak::engine
