/// Failures of the operating system, in its own words.
#pragma once

#include <string>

namespace tovak::text {

/// "FILE: " and the system's text for `errorNumber` (a value of errno).
std::string systemErrorText(const std::string& fileName, int errorNumber);

}  // namespace tovak::text
