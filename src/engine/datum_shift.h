/// The shift between NAD27 and NAD83.
#pragma once

#include <string>
#include <vector>

#include "engine/datum_grid.h"
#include "engine/error.h"
#include "engine/proj_objects.h"
#include "engine/projections.h"
#include "engine/shift_cells.h"

namespace tovak::engine {

class DatumShift {
 public:
  DatumShift() = default;
  DatumShift(const DatumShift&) = delete;
  DatumShift& operator=(const DatumShift&) = delete;
  ~DatumShift() = default;

  /// Opens the grid that `readDatumGrid` finds. False when there is none or it cannot be used; `fault` then says why.
  /// Only the first call looks; later ones return the same answer.
  bool open(ProjContext& context, const std::vector<KnownGrid>& known);
  const std::string& fault() const { return fault_; }

  /// The same point on the other datum, once `open` has returned true. Not finite when the point's NAD27 position is
  /// not on the grid or the shift cannot be computed; `takeError` then says which.
  Geographic toNad83(Geographic point) const;
  Geographic toNad27(Geographic point) const;
  Error takeError() const;

 private:
  bool searched_ = false;
  std::string fault_;
  ProjOperation shift_;  // forward is NAD27 to NAD83
  mutable ShiftCells cells_;
};

}  // namespace tovak::engine
