#include "selection/own_file.h"

#include <optional>

#include "run/identification.h"

namespace tovak::selection {

bool presetFromIdentification(Selections& selections, std::string_view line) {
  const std::optional<run::Identification> file = run::readIdentification(line);
  if (!file) return false;
  pickProjection(selections, Side::Source, file->code);
  chooseUnit(selections, Side::Source, file->metres);
  // A file on NAD27 knows nothing of the adjustments of the other datum: the choice stays.
  if (file->adjustment) chooseAdjustment(selections, *file->adjustment);
  return true;
}

}  // namespace tovak::selection
