/// Lines into a target file, written in blocks.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "text/target_file.h"

namespace tovak::text {

/// After a failure every later call fails too, and `error` keeps the first one.
class LineWriter {
 public:
  /// Lines end with the platform's line end.
  static constexpr std::string_view kLineEnd = std::filesystem::path::preferred_separator == '/' ? "\n" : "\r\n";

  bool open(const std::string& fileName, TargetFile::Way way = TargetFile::Way::Replace,
            TargetFile::Joint joint = nullptr);
  /// Everything goes into a text, which lives longer than the writer, and nothing to the disk.
  void openText(std::string& text) { text_ = &text; }
  /// One line; its end is added.
  bool writeLine(std::string_view line);
  /// Bytes as they are.
  bool write(std::string_view bytes);
  /// Writes what is left. After that only giving the file its name can fail (see `TargetFile`).
  bool finish();
  /// Finishes, and gives the file its name.
  bool commit();
  /// Drops everything; an older file stays.
  void discard();

  /// What it is written into.
  const TargetFile& target() const { return target_; }

  /// The file's name and the system's text, empty without a failure.
  const std::string& error() const { return target_.error(); }

 private:
  bool flush();

  TargetFile target_;
  std::string buffer_;
  std::string* text_ = nullptr;  ///< instead of the target
};

}  // namespace tovak::text
