/// The first line of every target file, by which the program recognises its own files.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "run/run_settings.h"

namespace tovak::run {

/// The line for the target of a run, for example "$Tovak#4M-2011$ NAD83(2011)  (Meters)".
std::string identificationLine(const RunSettings& settings);

/// What such a line says about its file.
struct Identification {
  std::int16_t code = 0;  ///< on the datum that the line declares, where the system has a counterpart on it
  bool metres = false;
  std::optional<Adjustment> adjustment = {};  ///< nothing for a file on NAD27, which has no adjustments
};

/// Nothing for any other line.
std::optional<Identification> readIdentification(std::string_view line);

/// The same for the first line of a file; nothing for a file that is not ordinary or cannot be read.
std::optional<Identification> identificationOf(const std::string& fileName);

/// Whether this contradicts the choices of the run: the system, the unit, or the adjustment where both name one.
bool contradicts(const Identification& file, const RunSettings& settings);

}  // namespace tovak::run
