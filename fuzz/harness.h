/// What the fuzzing programs share: splitting the input bytes, making files of them, and properties that must hold.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "run/conversion_run.h"
#include "support/scripted_engine.h"
#include "support/temporary_folder.h"

namespace tovak::fuzz {

/// Ends the program, and so reports a finding, unless the property holds.
void require(bool holds, std::string_view property, std::string_view detail = {});

/// The first of the remaining bytes, or 0 when there are none.
std::uint8_t takeByte(std::string_view& bytes);

/// The folder of this process, which is also the parent of the data folder.
const tests::TemporaryFolder& folder();

/// Settings of a run from the file "in" into "out" between two systems, without questions.
run::RunSettings settingsFor(std::int16_t source, std::int16_t target, std::int16_t code);

/// Those of the program, with the report.
const run::FormatTables& tables();

/// What a run did, besides its result.
struct Account {
  run::RunResult result;
  std::uint64_t rowsShown = 0;  ///< points that reached the output grid
};

/// A run with report and output grid. The engine returns coordinates unchanged.
Account runOnce(run::RunSettings settings, run::ConversionEngine& engine);

/// An engine that changes nothing and knows a zone for every county.
tests::ScriptedEngine& engine();

/// Every record has exactly one fate, and the points converted are those that were shown.
void requireSums(const Account& account);

std::uint64_t linesIn(std::string_view text);

}  // namespace tovak::fuzz
