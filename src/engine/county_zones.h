/// The county zones: the agency's catalogue of them, and how a zone is found by its county.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/catalogue.h"
#include "text/result.h"

struct pj_ctx;

namespace tovak::engine {

/// One line of the catalogue: seven fields with "|" between them, the last of which may hold any text.
struct CatalogueZone {
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

/// Reads a catalogue, or gives file, line and reason of the first fault. Empty lines and those that begin with "#" are
/// ignored.
text::Result<std::vector<CatalogueZone>> readCountyZones(const std::string& fileName);

/// The systems of the zones of `fileName`, or file, line and reason of the first definition that cannot be used.
text::Result<std::vector<CoordinateSystem>> countySystems(pj_ctx* context, const std::string& fileName,
                                                          const std::vector<CatalogueZone>& zones);

/// The NAD83 zone of a text made of county name, one blank and zone word, ignoring letter case and outer blanks; null
/// when there is none. A county that is divided needs the word; for those that agency files name without one, the first
/// zone is used (`run::isDividedCounty`).
const CatalogueZone* findZone(const std::vector<CatalogueZone>& zones, std::string_view text);

}  // namespace tovak::engine
