/// The messages and questions of a run itself. Those of the combination rules stand beside their conditions, those of a
/// file format in its reader.
#pragma once

#include <cstdint>
#include <string>

#include "run/message.h"

namespace tovak::run::messages {

Message horizontalReferenceMissing();
Message countyZoneMissing();
/// A target of an agency run with a source of another kind.
Message batchSourceMissing();
Message waypointsInLatLong();
Message crossingDatums();
Message projectUnusable(const std::string& reason);
Message changeFileName();
Message finished();
Message reportNameMissing();

/// Where in a file something is: "line 7 of points.csv".
std::string lineOfFile(std::uint64_t line, const std::string& fileName);

/// The engine's reason for refusing a point, with the point's line and file; a typed point has no file.
Message pointRefused(const std::string& reason, const std::string& fileName, std::uint64_t line);

/// The reason why a point is skipped whose latitude or longitude cannot be interpreted.
std::string noAngle();

}  // namespace tovak::run::messages
