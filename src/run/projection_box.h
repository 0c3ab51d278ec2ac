/// The text of a projection box and the unit buttons beside it, which always agree.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tovak::run {

struct ProjectionBox {
  std::int16_t code = 0;
  bool metres = false;
};

/// What the box shows and the engine receives: the code, and "M" for metres; for latitude and longitude too, where the
/// mark declares the unit of the elevation.
std::string projectionText(std::int16_t code, bool metres);

/// Whether a projection text, or a text typed for one, has the mark of metres: an "M" of either case.
bool marksMetres(std::string_view text);

/// Whether a text typed for a projection is no number but has letters of a name, for which systems can be searched.
bool namesSystem(std::string_view text);

/// The box after its text was changed by hand. The code is the whole number nearest to the text's leading number, or
/// `kNoProjection` without one. An "M" (either case) chooses metres; deleting only the "M" chooses feet; another number
/// without one keeps the unit, and so does the same number typed over the whole text (`overNumber`), and a name,
/// whatever its letters.
ProjectionBox typeProjection(const ProjectionBox& before, std::string_view text, bool overNumber);

}  // namespace tovak::run
