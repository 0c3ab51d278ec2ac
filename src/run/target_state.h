/// What the target's name refers to when a run is over.
#pragma once

namespace tovak::run {

enum class TargetState {
  NotOpened,   ///< the run never opened it, or has none
  Written,     ///< the points of the run
  OlderKept,   ///< the older file, unchanged
  NoFile,      ///< no file, as before
  Incomplete,  ///< a device, a pipe or an open descriptor, which received a part
};

}  // namespace tovak::run
