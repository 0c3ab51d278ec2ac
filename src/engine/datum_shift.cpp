#include "engine/datum_shift.h"

#include <optional>
#include <string>
#include <utility>

namespace tovak::engine {
namespace {

/// The middle of the area served, in radians.
constexpr Geographic kOnTheGrid = {.latitude = 0.8, .longitude = -1.6};

}  // namespace

bool DatumShift::open(ProjContext& context, const std::vector<KnownGrid>& known) {
  if (searched_) return shift_ != nullptr;
  searched_ = true;
  GridFile grid = readDatumGrid(known);
  fault_ = std::move(grid.fault);
  if (!fault_.empty()) return false;
  context.files().grid = std::move(grid.contents);
  shift_ = makeOperation(context.get(), (std::string("+proj=hgridshift +grids=") + kDatumGridFile).c_str());
  // Only the conversion of a point shows whether PROJ can read the grid.
  if (shift_ != nullptr && isFinite(toNad83(kOnTheGrid))) return true;
  shift_.reset();
  fault_ = std::string("PROJ cannot read the datum grid ") + kDatumGridFile + '.';
  return false;
}

Geographic DatumShift::toNad83(Geographic point) const {
  if (const std::optional<Geographic> shifted = cells_.forward(shift_.get(), point)) return *shifted;
  return shiftByProj(shift_.get(), Direction::forward, point);
}

Geographic DatumShift::toNad27(Geographic point) const {
  if (const std::optional<Geographic> shifted = cells_.inverse(shift_.get(), point)) return *shifted;
  const Geographic shifted = shiftByProj(shift_.get(), Direction::inverse, point);
  if (!isFinite(shifted)) return shifted;
  // Where the inverse leaves the grid, PROJ returns its first guess as if all were well; converting back shows it.
  const Geographic back = toNad83(shifted);
  return isFinite(back) ? shifted : back;
}

Error DatumShift::takeError() const {
  return engine::takeError(shift_.get());
}

}  // namespace tovak::engine
