/// The file of the datum grid: the published grids that the engine accepts, and reading the one that is installed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tovak::engine {

/// The NADCON grid of the conterminous states (NOAA Technical Memorandum NOS NGS-50), as PROJ distributes it. It is
/// named explicitly: PROJ's own choice between NAD27 and NAD83 may be a neighbouring country's grid or a few metres'
/// guess.
inline constexpr const char* kDatumGridFile = "us_noaa_conus.tif";

/// One line of the list: three fields with "|" between them.
struct KnownGrid {
  std::string name;
  std::uint64_t size = 0;
  std::uint32_t checksum = 0;  ///< CRC-32, eight hexadecimal digits in the file
};

/// The file of the list: "grids.txt" in the data folder, else the program's own.
std::string gridListFile();

/// Reads a list. Empty lines and those that begin with "#" are ignored. The first fault leaves file, line and reason in
/// `error`, empty without one.
std::vector<KnownGrid> readKnownGrids(const std::string& fileName, std::string& error);

/// Either the contents of the datum grid or what is wrong with it, as a text for the person: fewer than 100 characters,
/// without commas.
struct GridFile {
  std::string contents;
  std::string fault;
};

/// Reads the grid in the folder "grids" of the data folder, else the program's own. The first one found counts: it is
/// used when its size and checksum are in the list under its name, and nothing is used in its place when they are not.
GridFile readDatumGrid(const std::vector<KnownGrid>& known);

/// CRC-32 as in ISO 3309 and ITU-T V.42, that of zlib, gzip and PNG.
std::uint32_t crc32(std::string_view bytes);

}  // namespace tovak::engine
