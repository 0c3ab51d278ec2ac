#include "text/line_reader.h"

#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include "text/number.h"
#include "text/system_error.h"

namespace tovak::text {
namespace {

constexpr std::size_t kBlockSize = std::size_t{64} << 10;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

ssize_t readBlock(int file, char* to, std::size_t size) {
  ssize_t count = 0;
  do count = ::read(file, to, size);
  while (count < 0 && errno == EINTR);
  return count;
}

}  // namespace

LineReader::~LineReader() {
  close();
}

void LineReader::close() {
  if (file_ >= 0) ::close(file_);
  file_ = -1;
}

bool LineReader::open(const std::string& fileName, std::uint64_t start) {
  close();
  fileName_ = fileName;
  start_ = start;
  startOver();
  file_ = ::open(fileName.c_str(), O_RDONLY | O_CLOEXEC);
  if (file_ < 0) return fail(Fault::System, systemErrorText(fileName_, errno));
  if (buffer_.empty()) buffer_.resize(kBlockSize);
  return start == 0 || rewind();
}

void LineReader::startOver() {
  begin_ = end_ = 0;
  lineNumber_ = 0;
  atEnd_ = false;
  fault_ = Fault::None;
  error_.clear();
}

bool LineReader::rewind() {
  startOver();
  if (::lseek(file_, static_cast<off_t>(start_), SEEK_SET) < 0)
    return fail(Fault::System, systemErrorText(fileName_, errno));
  return true;
}

bool LineReader::fail(Fault fault, std::string text) {
  fault_ = fault;
  error_ = std::move(text);
  return false;
}

/// Reads one more block behind what is held; false at the end of the file and on a fault.
bool LineReader::fill() {
  if (atEnd_ || file_ < 0) return false;
  if (begin_ > 0) {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
  }
  if (end_ == buffer_.size()) buffer_.resize(buffer_.size() * 2);
  const ssize_t count = readBlock(file_, buffer_.data() + end_, buffer_.size() - end_);
  if (count < 0) return fail(Fault::System, systemErrorText(fileName_, errno));
  atEnd_ = count == 0;
  end_ += static_cast<std::size_t>(count);
  return !atEnd_;
}

bool LineReader::take(std::size_t length, std::size_t lengthWithEnd, std::string_view& line) {
  line = {buffer_.data() + begin_, length};
  begin_ += lengthWithEnd;
  ++lineNumber_;
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  if (line.size() > kMaxLineLength) {
    std::string text = fileName_ + ": line ";
    appendWhole(text, static_cast<std::int64_t>(lineNumber_));
    return fail(Fault::LineTooLong, text + " is longer than 1 MiB");
  }
  if (lineNumber_ == 1 && start_ == 0 && line.starts_with(kByteOrderMark)) line.remove_prefix(kByteOrderMark.size());
  return true;
}

bool LineReader::next(std::string_view& line) {
  if (fault_ != Fault::None) return false;
  std::size_t scanned = 0;
  for (;;) {
    const char* const from = buffer_.data() + begin_ + scanned;
    const void* const found = begin_ + scanned < end_ ? std::memchr(from, '\n', end_ - begin_ - scanned) : nullptr;
    if (found != nullptr) {
      const auto length = static_cast<std::size_t>(static_cast<const char*>(found) - (buffer_.data() + begin_));
      return take(length, length + 1, line);
    }
    scanned = end_ - begin_;
    // One more than the longest line with its CR is enough to know that it is too long.
    if (scanned > kMaxLineLength + 1) return take(scanned, scanned, line);
    if (fill()) continue;
    if (fault_ != Fault::None || scanned == 0) return false;
    return take(scanned, scanned, line);
  }
}

std::string faultAtLine(const std::string& fileName, std::uint64_t line, std::string_view reason) {
  std::string text = fileName + ": line ";
  appendWhole(text, static_cast<std::int64_t>(line));
  text += ": ";
  return text += reason;
}

}  // namespace tovak::text
