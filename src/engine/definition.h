/// Definitions of county zones and projects, as an agency or a surveyor writes them.
#pragma once

#include <optional>
#include <string_view>

#include "engine/projection_parameters.h"

struct pj_ctx;

namespace tovak::engine {

/// Brings a definition to the bare map projection between latitude and longitude of its datum and metres. It may be
/// PROJ parameters ("+proj=..."), AUTHORITY:CODE of a projected system in PROJ's database, or the WKT of one (ISO
/// 19162, or one of its forerunners) in one line. The order of a system's axes does not matter; its unit is the metre
/// or the U.S. survey foot (`Parameters::feet`), its meridian Greenwich, its ellipsoid that of `expected`, or of either
/// datum when nothing is expected.
///
/// The projection has to fit the area served: in the middle of it, the axes run roughly north and east, a metre is
/// roughly a metre, and the inverse comes back. So a longitude without its sign, a scale in feet, and operations that
/// are not map projections are refused. Anything that could name a file is refused before PROJ sees it.
text::Result<Parameters> readDefinition(pj_ctx* context, std::string_view definition, std::optional<Datum> expected);

}  // namespace tovak::engine
