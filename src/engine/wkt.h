/// Which well-known texts of systems are passed to PROJ.
#pragma once

#include <string>
#include <string_view>

namespace tovak::engine {

/// Whether a text has the shape of WKT in one piece: a keyword, and brackets from there to the end.
bool isWkt(std::string_view text);

/// Why a WKT may not be passed to PROJ, empty when it may. Only keywords of projected systems (ISO 19162 and its
/// forerunners) are allowed: others, such as EXTENSION and PARAMETERFILE, let PROJ open files or start operations of
/// its own. Methods that are PROJ's own parameters are refused for the same reason.
std::string faultInWkt(std::string_view wkt);

}  // namespace tovak::engine
