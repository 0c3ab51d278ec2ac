/// The shift between NAD27 and NAD83.
#pragma once

#include <string>

#include "engine/error.h"
#include "engine/proj_objects.h"
#include "engine/projections.h"

namespace tovak::engine {

/// The NADCON grid of the conterminous states (NOAA Technical Memorandum NOS NGS-50), as PROJ distributes it. It is
/// named outright: PROJ's own choice between NAD27 and NAD83 may be a neighbouring country's grid or a few metres'
/// guess.
inline constexpr const char* kDatumGridFile = "us_noaa_conus.tif";

class DatumShift {
 public:
  DatumShift() = default;
  DatumShift(const DatumShift&) = delete;
  DatumShift& operator=(const DatumShift&) = delete;
  ~DatumShift() = default;

  /// Looks for the grid in the folder "grids" of the data folder, then where PROJ looks for its files (PROJ_DATA among
  /// them; over the network only if PROJ is set so). False when it is not there or cannot be read. Only the first call
  /// looks; the later ones return what it found. From then on `context` asks this object for its files, so it is used
  /// no longer than this object.
  bool open(pj_ctx* context);

  /// The same point on the other datum, once `open` has returned true. Not finite when the point's NAD27 position is
  /// not on the grid or the shift cannot be computed; `takeError` then tells which.
  Geographic toNad83(Geographic point) const;
  Geographic toNad27(Geographic point) const;
  Error takeError() const;

 private:
  void tryToOpen(pj_ctx* context);

  bool searched_ = false;
  std::string ownGrid_;  // the one in the data folder, empty when that is not used
  ProjOperation shift_;  // forward is NAD27 to NAD83
};

}  // namespace tovak::engine
