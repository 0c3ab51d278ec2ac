/// How one line of a delimited point file is laid out.
#pragma once

#include <cstdint>
#include <string>

namespace tovak::run {

inline constexpr const char* kStandardFieldCodes = " 0~ 1~ 2~ 3~ 4~ 5~ 6~ 7~";

struct DelimitedFormat {
  std::string name = {};
  char delimiter = ',';
  /// The fields in order, each code as a blank, its decimal number and "~". Empty: no fields.
  std::string fieldCodes = kStandardFieldCodes;
  /// The header line for target files; its last character, normally the delimiter, is not written.
  std::string headerLine = {};
  /// How latitudes and longitudes are written: 0 DDMMSS.ss, 1 DD.MMSSss, 2 DD MM SS.ss, 3 DD.ddddddd.
  std::uint8_t latLongFormat = 0;
  /// Whether the header line is written.
  bool includeHeader = false;

  bool operator==(const DelimitedFormat&) const = default;
};

}  // namespace tovak::run
