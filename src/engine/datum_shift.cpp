#include "engine/datum_shift.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include <proj.h>

#include "run/data_folder.h"

namespace tovak::engine {
namespace {

/// In the midst of the area served, in radians.
constexpr Geographic kOnTheGrid = {.latitude = 0.8, .longitude = -1.6};

std::string gridInDataFolder() {
  const std::filesystem::path folder = run::dataFolder();
  if (folder.empty()) return {};
  const std::filesystem::path file = folder / "grids" / kDatumGridFile;
  std::error_code ignored;
  return std::filesystem::is_regular_file(file, ignored) ? file.string() : std::string();
}

// PROJ asks here before it looks for a file of its own, when the grid is opened and again at its first point. Null
// leaves the search to PROJ. An empty name is a file that is nowhere: PROJ would replace a grid it does not find by a
// predecessor, and take whatever file bears that name. A path handed over in this way, unlike one in PROJ's notation,
// may contain blanks, commas and quotes.
const char* answerPath(PJ_CONTEXT* /*context*/, const char* name, void* ownGrid) {
  if (std::string_view(name) != kDatumGridFile) return "";
  const std::string& path = *static_cast<const std::string*>(ownGrid);
  return path.empty() ? nullptr : path.c_str();
}

Geographic shiftPoint(PJconsts* shift, Direction direction, Geographic point) {
  const ProjPair pair = transform(shift, direction, {.x = point.longitude, .y = point.latitude});
  return {.latitude = pair.y, .longitude = pair.x};
}

}  // namespace

bool DatumShift::open(pj_ctx* context) {
  if (!searched_) {
    searched_ = true;
    ownGrid_ = gridInDataFolder();
    proj_context_set_file_finder(context, answerPath, &ownGrid_);
    if (!ownGrid_.empty()) tryToOpen(context);
    if (shift_ == nullptr) {
      ownGrid_.clear();
      tryToOpen(context);
    }
  }
  return shift_ != nullptr;
}

void DatumShift::tryToOpen(pj_ctx* context) {
  shift_ = makeOperation(context, (std::string("+proj=hgridshift +grids=") + kDatumGridFile).c_str());
  // Whether the grid can be read shows no sooner than at a point: PROJ does not even look for one again whose name it
  // has once met in this process.
  if (shift_ == nullptr || isFinite(toNad83(kOnTheGrid))) return;
  takeError();
  shift_.reset();
}

Geographic DatumShift::toNad83(Geographic point) const {
  return shiftPoint(shift_.get(), Direction::forward, point);
}

Geographic DatumShift::toNad27(Geographic point) const {
  const Geographic shifted = shiftPoint(shift_.get(), Direction::inverse, point);
  if (!isFinite(shifted)) return shifted;
  // Where the inverse leaves the grid PROJ returns its first guess as if all were well; the way back tells.
  const Geographic back = toNad83(shifted);
  return isFinite(back) ? shifted : back;
}

Error DatumShift::takeError() const {
  return engine::takeError(shift_.get());
}

}  // namespace tovak::engine
