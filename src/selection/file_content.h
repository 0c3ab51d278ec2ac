/// What kind of point file a file is by its content.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tovak::selection {

struct FileContent {
  std::int16_t format = 0;     ///< the source format
  char delimiter = ',';        ///< of a delimited file
  std::string_view sign = {};  ///< by what it is known, as the end of a sentence: "its lines begin with WP,DMS"
};

/// The first lines of a file, 200 at most; none if it is not an ordinary file or cannot be read.
std::vector<std::string> readSample(const std::string& fileName);

/// Nothing for a file in none of the source formats, and for the agency's batch files.
std::optional<FileContent> recognizeContent(const std::vector<std::string>& lines);

}  // namespace tovak::selection
