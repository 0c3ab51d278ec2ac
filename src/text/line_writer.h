/// Lines into a target file, written in blocks.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/target_file.h"

namespace tovak::text {

/// A failure stays: everything after it fails too, and `error` keeps the first one.
class LineWriter {
 public:
  /// Lines end with the platform's line end.
  static constexpr std::string_view kLineEnd = "\n";

  bool open(const std::string& fileName, TargetFile::Way way = TargetFile::Way::Replace);
  /// One line; its end is added.
  bool writeLine(std::string_view line);
  /// Bytes as they are.
  bool write(std::string_view bytes);
  /// Writes what is left: from now on only giving the file its name can fail (see `TargetFile`).
  bool finish();
  /// Finishes, and gives the file its name.
  bool commit();
  /// Drops everything; an older file stays.
  void discard();

  /// Where the first line stands in the committed file.
  std::uint64_t start() const { return target_.start(); }

  /// The file's name and the system's text, empty without a failure.
  const std::string& error() const { return target_.error(); }

 private:
  bool flush();

  TargetFile target_;
  std::string buffer_;
};

}  // namespace tovak::text
