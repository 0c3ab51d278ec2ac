/// The lines of a file, one at a time, read in blocks. Memory does not grow with the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tovak::text {

class LineReader {
 public:
  /// The longest line that is read, its line end aside. A longer one is a fault, not an allocation.
  static constexpr std::size_t kMaxLineLength = std::size_t{1} << 20;

  enum class Fault {
    None,
    System,       ///< the operating system failed to open or read the file
    LineTooLong,  ///< a line beyond `kMaxLineLength`
  };

  LineReader() = default;
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;
  ~LineReader();

  /// Opens a file from its byte `start` on; one that was open is closed. False: `error()` says why.
  bool open(const std::string& fileName, std::uint64_t start = 0);

  /// Begins again at the line that was first. False, with `error()`, where the system cannot go back, as in a pipe.
  bool rewind();

  /// The next line without its line end (LF or CR LF; the last line needs none). Any bytes are passed through, but a
  /// UTF-8 byte order mark at the very start is left out. The view holds until the next call. False at the end of the
  /// file and on a fault.
  bool next(std::string_view& line);

  void close();

  /// The number of the line that `next` gave last, from 1.
  std::uint64_t lineNumber() const { return lineNumber_; }
  const std::string& fileName() const { return fileName_; }
  Fault fault() const { return fault_; }
  /// What went wrong, with the file's name (and the line), empty without a fault.
  const std::string& error() const { return error_; }

 private:
  bool fill();
  void startOver();
  bool fail(Fault fault, std::string text);
  bool take(std::size_t length, std::size_t lengthWithEnd, std::string_view& line);

  std::string fileName_;
  int file_ = -1;
  std::uint64_t start_ = 0;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;  ///< first byte not yet given out
  std::size_t end_ = 0;    ///< past the last byte read
  bool atEnd_ = false;
  std::uint64_t lineNumber_ = 0;
  Fault fault_ = Fault::None;
  std::string error_;
};

/// "FILE: line N: REASON".
std::string faultAtLine(const std::string& fileName, std::uint64_t line, std::string_view reason);

}  // namespace tovak::text
