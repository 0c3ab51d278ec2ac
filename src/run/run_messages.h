/// The messages and questions of a run itself. Those of the combination rules stand beside their conditions, those of a
/// file format in its reader.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "run/message.h"
#include "run/point_record.h"
#include "run/record_counts.h"
#include "run/run_settings.h"
#include "run/target_state.h"

namespace tovak::run {

/// The message for a failure of the operating system (file name and the system's text).
Message systemMessage(const std::string& error);

}  // namespace tovak::run

namespace tovak::run::messages {

Message sourceNameMissing();
Message targetNameMissing();
/// An agency target with a source that does not go with it.
Message batchSourceMissing();
/// A projection box without a number.
Message unknownSourceProjection();
Message unknownTargetProjection();
Message waypointsInLatLong();
Message crossingDatums();
Message projectUnusable(const std::string& reason);
Message changeFileName();
/// Before the usual ending of a format, such as ".kml", is added to the name of the target.
Message addEnding(std::string_view ending);
Message finished();
/// Instead of `finished` when there is a report, which otherwise is enough to tell that the run is over.
Message finishedInDoubt();
/// Shown in place of `finished`, with the text of `targetStands`.
Message nothingWritten(const std::string& standing);
Message reportNameMissing();
/// Whether an older file may go.
Message replaceTarget(const std::string& fileName);

/// What the target file now is, when it did not get the points of the run; else empty.
std::string targetStands(TargetState state, const RecordCounts& counts, const std::string& name);

/// Where in a file something is: "line 7 of points.csv".
std::string lineOfFile(std::uint64_t line, const std::string& fileName);

/// The reason for refusing a point, with the point's line and file, where the run may be stopped, and its coordinates
/// as they were read; a typed point has no file.
Message pointRefused(const std::string& reason, const std::string& fileName, const PointRecord& point,
                     const RunSettings& settings);

}  // namespace tovak::run::messages
