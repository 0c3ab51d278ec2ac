/// The lines of a file, one at a time, read in blocks. Memory does not grow with the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "text/file_identity.h"

namespace tovak::text {

class LineReader {
 public:
  /// The longest line that is read, without its line end. A longer one is a fault; memory does not grow for it.
  static constexpr std::size_t kMaxLineLength = std::size_t{1} << 20;

  enum class Fault {
    None,
    System,       ///< the operating system failed to open or read the file
    LineTooLong,  ///< a line beyond `kMaxLineLength`
    Stopped,      ///< the watch wanted no more
  };

  /// Told how many bytes have been read, those of files opened before included; false to read no more.
  using Watch = std::function<bool(std::uint64_t bytes)>;

  LineReader() = default;
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;
  ~LineReader();

  /// Opens a file from its byte `start` on; one that was open is closed. False: `error()` says why.
  bool open(const std::string& fileName, std::uint64_t start = 0);

  /// Goes back to the first line. False, with `error()`, where the system cannot go back, as in a pipe.
  bool rewind();

  /// The next line without its line end (LF, CR LF or a lone CR; the last line needs none). All bytes are passed
  /// through, except a UTF-8 byte order mark at the very start and the character 26 (Ctrl-Z) with which older programs
  /// end a file. The view holds until the next call. False at the end of the file and on a fault.
  bool next(std::string_view& line);

  void close();

  /// Whether a file read here, this one or one opened before it, is no longer the one that was opened, or has another
  /// size or time: it was written to, cut, replaced or removed meanwhile. What is no ordinary file never is.
  bool sourceChanged() const { return changedBefore_ || changed(); }

  /// From the next opening on no more than the first `bytes` of a file are read, and a line that they cut off is not
  /// given out. Nothing is waited for either, such as the other end of a pipe.
  void limit(std::size_t bytes) { limit_ = bytes; }
  /// Asked before each block of a file is read. When it says false, the lines end with the fault `Stopped`.
  void watch(Watch goesOn) { watch_ = std::move(goesOn); }
  /// What the watch is told.
  std::uint64_t bytesRead() const { return bytesBefore_ + bytesRead_; }
  /// Whether the limit, and not the file, has ended the lines.
  bool limitReached() const { return limitReached_; }

  /// The number of the line that `next` gave last, from 1.
  std::uint64_t lineNumber() const { return lineNumber_; }
  const std::string& fileName() const { return fileName_; }
  Fault fault() const { return fault_; }
  /// What went wrong, with the file's name (and the line), empty without a fault.
  const std::string& error() const { return error_; }

 private:
  bool beyondLimit() const { return limit_ != 0 && bytesRead_ > limit_; }
  bool fill();
  void startOver();
  bool fail(Fault fault, std::string text);
  std::size_t find(char c, std::size_t from) const;
  bool take(std::size_t lineEnd, std::string_view& line);
  bool takeLast(std::string_view& line);
  bool begin(std::string_view& line);
  bool beginFirstOrLong(std::string_view& line);
  bool changed() const;

  std::string fileName_;
  std::optional<FileVersion> version_;  ///< when it was opened; nothing for what is no ordinary file
  bool changedBefore_ = false;          ///< one of those that were opened before
  int file_ = -1;
  std::uint64_t start_ = 0;
  std::size_t limit_ = 0;  ///< 0 for none
  std::size_t bytesRead_ = 0;
  std::uint64_t bytesBefore_ = 0;  ///< of the files opened before
  Watch watch_;
  bool limitReached_ = false;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;  ///< first byte not yet given out
  std::size_t end_ = 0;    ///< past the last byte read
  // The next CR and the next LF, `end_` where none has been read. Each is searched for once, so a file with one kind of
  // line end does not pay for the other.
  std::size_t lineFeed_ = 0;
  std::size_t carriageReturn_ = 0;
  bool afterCarriageReturn_ = false;  ///< the last byte given out was a CR whose LF may still come
  bool atEnd_ = false;
  std::uint64_t lineNumber_ = 0;
  Fault fault_ = Fault::None;
  std::string error_;
};

/// "FILE: line N: REASON".
std::string faultAtLine(const std::string& fileName, std::uint64_t line, std::string_view reason);

}  // namespace tovak::text
