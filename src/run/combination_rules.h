/// Which selections cannot work together.
#pragma once

#include "run/message.h"
#include "run/run_settings.h"

namespace tovak::run {

/// The message of the first rule that the selections break, or null. The rules are tried in a fixed order. Their icons
/// and wordings differ here and there, and some rules name only one of two similar formats; users know them this way,
/// so they stay.
const Message* firstBrokenRule(const RunSettings& settings);

/// The message when source and target (unless keyboard or screen), or the report file and either, are one file; or
/// null.
const Message* fileCollision(const RunSettings& settings);

/// True when one side is on NAD27 and the other on NAD83.
bool crossesDatums(const RunSettings& settings);

}  // namespace tovak::run
