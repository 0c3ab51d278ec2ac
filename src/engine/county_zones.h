/// The county zones: the agency's catalogue of them, and how a zone is found by its county.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/catalogue.h"

struct pj_ctx;

namespace tovak::engine {

/// One line of the catalogue: seven fields with "|" between them, the last of which may hold anything.
struct CountyZone {
  std::int16_t code = 0;  ///< 5 to 102 on NAD83, 108 to 205 on NAD27; a zone's two numbers are 103 apart
  std::string county;
  std::string word;   ///< of the zone, such as "North Shore"; empty where the county is one zone
  std::string place;  ///< county and, where there is a word, a blank and the word
  std::string text;   ///< by which the agency's files name the zone, such as "Lake - North"; may be empty
  Datum datum = Datum::nad83;
  char statePlane = 'N';   ///< the state plane zone that the county lies in: N, C or S
  std::string definition;  ///< as `readDefinition` takes it
  std::uint64_t line = 0;  ///< of the file
};

/// The file of the catalogue: "counties.txt" in the data folder, else the program's own.
std::string countyFile();

/// Reads a catalogue. Empty lines and those that begin with "#" mean nothing. The first fault leaves file, line and
/// reason in `error`, empty without one.
std::vector<CountyZone> readCountyZones(const std::string& fileName, std::string& error);

/// The systems of the zones of `fileName`. The first definition that cannot be used leaves file, line and reason in
/// `error`.
std::vector<CoordinateSystem> countySystems(pj_ctx* context, const std::string& fileName,
                                            const std::vector<CountyZone>& zones, std::string& error);

/// The NAD83 zone of a text made of county name, one blank and zone word, whatever the letter case and with blanks at
/// the ends; null when there is none. A county that is divided needs the word; for those that agency files name without
/// one the first zone stands (codes 8, 16, 22, 39, 49 and 80).
const CountyZone* findZone(const std::vector<CountyZone>& zones, std::string_view text);

}  // namespace tovak::engine
