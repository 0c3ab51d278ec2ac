/// Failures of the operating system, in its own words.
#pragma once

#include <string>
#include <system_error>

namespace tovak::text {

/// The number of the error that the last call of the system left: errno, or what GetLastError says on Windows.
int lastSystemError();

/// "FILE: " and the system's text for `errorNumber`, a number as `lastSystemError` gives it.
std::string systemErrorText(const std::string& fileName, int errorNumber);
/// The same of an error that the standard library reports.
std::string systemErrorText(const std::string& fileName, const std::error_code& error);

}  // namespace tovak::text
