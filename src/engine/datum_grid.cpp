#include "engine/datum_grid.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>

#include "run/module_loader.h"
#include "text/line_reader.h"
#include "text/native_path.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::engine {
namespace {

namespace fs = std::filesystem;

constexpr double kLargestGrid = 64.0 * 1024.0 * 1024.0;  // bytes

constexpr std::array<std::uint32_t, 256> checksumTable() {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
    table[byte] = byte;
    for (int bit = 0; bit < 8; ++bit) table[byte] = (table[byte] >> 1) ^ (table[byte] % 2 == 1 ? 0xEDB88320U : 0U);
  }
  return table;
}

bool readChecksum(std::string_view text, std::uint32_t& checksum) {
  constexpr std::size_t kDigits = 8;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, checksum, 16);
  return text.size() == kDigits && error == std::errc() && stop == end;
}

/// Fills `grid` from a line, or gives the reason why it cannot.
std::string readLine(std::string_view line, KnownGrid& grid) {
  if (text::hasControlCharacter(line)) return "the line holds a tab or another control character";
  if (std::ranges::count(line, '|') != 2) return "three fields with \"|\" between them are expected";
  grid.name = text::trimBlanks(text::takeField(line, '|'));
  const std::optional<double> size = text::strictNumber(text::takeField(line, '|'));
  if (grid.name.empty()) return "the grid has no name";
  if (!size || *size < 1.0 || *size > kLargestGrid || *size != std::floor(*size))
    return "the size is not a number of bytes";
  grid.size = static_cast<std::uint64_t>(*size);
  const bool read = readChecksum(text::trimBlanks(line), grid.checksum);
  return read ? "" : "the checksum does not have eight hexadecimal digits";
}

std::string faultText(const char* place, const std::string& fault) {
  return std::string("The datum grid ") + kDatumGridFile + place + fault;
}

/// What is wrong with the contents of a grid file.
std::string compare(const std::vector<KnownGrid>& known, std::string_view contents) {
  bool listed = false;
  bool sized = false;
  for (const KnownGrid& grid : known) {
    if (grid.name != kDatumGridFile) continue;
    listed = true;
    if (grid.size != contents.size()) continue;
    sized = true;
    if (grid.checksum == crc32(contents)) return {};
  }
  if (sized) return " is damaged: its CRC-32 is not in grids.txt.";
  return listed ? " is damaged: its size is not in grids.txt." : " is not in grids.txt.";
}

/// The contents of a file, up to the largest size of a grid; false when it cannot be read.
bool readFile(const fs::path& file, std::string& contents) {
  std::error_code error;
  if (!fs::is_regular_file(file, error)) return false;
  const std::uintmax_t size = fs::file_size(file, error);
  if (error || static_cast<double>(size) > kLargestGrid) return !error;
  contents.resize(size);
  std::ifstream stream(file, std::ios::binary);
  stream.read(contents.data(), static_cast<std::streamsize>(size));
  contents.resize(static_cast<std::size_t>(std::max<std::streamsize>(stream.gcount(), 0)));
  return stream.good();
}

}  // namespace

std::string gridListFile() {
  return run::dataFile("grids.txt");
}

std::vector<KnownGrid> readKnownGrids(const std::string& fileName, std::string& error) {
  std::vector<KnownGrid> grids;
  text::LineReader lines;
  lines.open(fileName);
  for (std::string_view line; lines.next(line);) {
    if (text::trimBlanks(line).empty() || line.front() == '#') continue;
    KnownGrid grid;
    if (const std::string reason = readLine(line, grid); !reason.empty()) {
      error = text::faultAtLine(fileName, lines.lineNumber(), reason);
      return {};
    }
    grids.push_back(std::move(grid));
  }
  error = lines.error();
  return grids;
}

GridFile readDatumGrid(const std::vector<KnownGrid>& known) {
  const std::string name = std::string("grids/") + kDatumGridFile;
  const fs::path own = text::pathOf(run::programFile(name));
  fs::path file = text::pathOf(run::dataFile(name));
  // A relative name (of the data folder, or when the executable's folder is unknown) would refer to the current folder.
  if (file.is_relative()) file = own;
  const char* const place = file == own ? " of the program" : " in the data folder";
  std::error_code error;
  if (file.is_relative() || fs::symlink_status(file, error).type() == fs::file_type::not_found) {
    return {{}, faultText(" was found", " neither in the data folder nor beside the program.")};
  }
  GridFile grid;
  if (!readFile(file, grid.contents)) return {{}, faultText(place, " cannot be read.")};
  if (const std::string fault = compare(known, grid.contents); !fault.empty()) return {{}, faultText(place, fault)};
  return grid;
}

std::uint32_t crc32(std::string_view bytes) {
  static constexpr std::array<std::uint32_t, 256> kTable = checksumTable();
  std::uint32_t sum = 0xFFFFFFFFU;
  for (const char byte : bytes) sum = (sum >> 8) ^ kTable[(sum ^ static_cast<unsigned char>(byte)) & 0xFFU];
  return ~sum;
}

}  // namespace tovak::engine
