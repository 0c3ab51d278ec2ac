#include "text/line_reader.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "text/descriptor.h"
#include "text/number.h"
#include "text/system_error.h"

namespace tovak::text {
namespace {

constexpr std::size_t kBlockSize = std::size_t{64} << 10;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr char kEndOfFileCharacter = '\x1A';

/// "FILE: line N".
std::string placeInFile(const std::string& fileName, std::uint64_t line) {
  std::string text = fileName + ": line ";
  appendWhole(text, static_cast<std::int64_t>(line));
  return text;
}

}  // namespace

LineReader::~LineReader() {
  close();
}

void LineReader::close() {
  if (file_ >= 0) closeFile(file_);
  file_ = -1;
}

bool LineReader::open(const std::string& fileName, std::uint64_t start) {
  changedBefore_ = sourceChanged();
  close();
  version_.reset();
  fileName_ = fileName;
  start_ = start;
  bytesBefore_ += bytesRead_;
  startOver();
  file_ = openToRead(fileName, limit_ == 0);
  if (file_ < 0) return fail(Fault::System, systemErrorText(fileName_, lastSystemError()));
  version_ = versionOf(file_);
  if (buffer_.empty()) buffer_.resize(kBlockSize);
  return start == 0 || rewind();
}

bool LineReader::changed() const {
  return version_ && versionOf(fileName_) != version_;
}

void LineReader::startOver() {
  begin_ = end_ = lineFeed_ = carriageReturn_ = 0;
  afterCarriageReturn_ = false;
  lineNumber_ = 0;
  bytesRead_ = 0;
  limitReached_ = atEnd_ = false;
  fault_ = Fault::None;
  error_.clear();
}

bool LineReader::rewind() {
  startOver();
  return goToByte(file_, start_) || fail(Fault::System, systemErrorText(fileName_, lastSystemError()));
}

bool LineReader::fail(Fault fault, std::string text) {
  lineFeed_ = end_;
  fault_ = fault;
  error_ = std::move(text);
  return false;
}

/// Where `c` is first, `end_` when it is nowhere.
std::size_t LineReader::find(char c, std::size_t from) const {
  const char* const bytes = buffer_.data();
  const void* const found = from < end_ ? std::memchr(bytes + from, c, end_ - from) : nullptr;
  return found == nullptr ? end_ : static_cast<std::size_t>(static_cast<const char*>(found) - bytes);
}

/// Reads one more block after the held text, which has no line end; false at the end of the file and on a fault.
bool LineReader::fill() {
  if (atEnd_ || file_ < 0) return false;
  if (watch_ && !watch_(bytesRead())) return fail(Fault::Stopped, fileName_ + " was not read to its end");
  if (begin_ > 0) {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
  }
  if (end_ == buffer_.size()) buffer_.resize(buffer_.size() * 2);
  const std::size_t room = buffer_.size() - end_;
  const std::size_t wanted = limit_ == 0 ? room : std::min(room, limit_ + 1 - bytesRead_);
  const std::ptrdiff_t count = readBlock(file_, buffer_.data() + end_, wanted);
  if (count < 0) return fail(Fault::System, systemErrorText(fileName_, lastSystemError()));
  bytesRead_ += static_cast<std::size_t>(count);
  const bool ended = count == 0;
  // The one byte beyond the limit tells a longer file from one that ends there.
  atEnd_ = ended || beyondLimit();
  std::size_t searched = end_;
  end_ += static_cast<std::size_t>(count);
  if (afterCarriageReturn_ && !ended) {
    if (buffer_[begin_] == '\n') searched = ++begin_;
    afterCarriageReturn_ = false;
  }
  lineFeed_ = find('\n', searched);
  carriageReturn_ = find('\r', searched);
  return !ended;
}

/// Returns the text before the line end at that place.
bool LineReader::take(std::size_t lineEnd, std::string_view& line) {
  line = {buffer_.data() + begin_, lineEnd - begin_};
  begin_ = lineEnd + 1;
  if (lineEnd == carriageReturn_) {
    if (lineFeed_ == begin_ && begin_ < end_) ++begin_;
    afterCarriageReturn_ = begin_ == end_ && lineFeed_ == end_;
    carriageReturn_ = find('\r', begin_);
  }
  if (lineFeed_ < begin_) lineFeed_ = find('\n', begin_);
  return begin(line);
}

/// Returns the text after the last line end.
bool LineReader::takeLast(std::string_view& line) {
  line = {buffer_.data() + begin_, end_ - begin_};
  begin_ = end_;
  while (!line.empty() && line.back() == kEndOfFileCharacter) line.remove_suffix(1);
  return !line.empty() && begin(line);
}

/// Counts a line, and looks at its beginning and length.
bool LineReader::begin(std::string_view& line) {
  ++lineNumber_;
  return lineNumber_ != 1 && line.size() <= kMaxLineLength ? true : beginFirstOrLong(line);
}

bool LineReader::beginFirstOrLong(std::string_view& line) {
  if (line.size() > kMaxLineLength)
    return fail(Fault::LineTooLong, placeInFile(fileName_, lineNumber_) + " is longer than 1 MiB");
  if (start_ == 0 && line.starts_with(kByteOrderMark)) line.remove_prefix(kByteOrderMark.size());
  return true;
}

bool LineReader::next(std::string_view& line) {
  // Nearly every line. After a fault no line is left in sight.
  if (lineFeed_ < carriageReturn_ && lineFeed_ < end_) {
    line = {buffer_.data() + begin_, lineFeed_ - begin_};
    begin_ = lineFeed_ + 1;
    lineFeed_ = find('\n', begin_);
    return begin(line);
  }
  if (fault_ != Fault::None) return false;
  for (;;) {
    const std::size_t lineEnd = std::min(lineFeed_, carriageReturn_);
    if (lineEnd < end_) return take(lineEnd, line);
    if (end_ - begin_ > kMaxLineLength) {
      line = {buffer_.data() + begin_, end_ - begin_};
      return begin(line);
    }
    if (fill()) continue;
    limitReached_ = beyondLimit();
    return fault_ == Fault::None && !limitReached_ && takeLast(line);
  }
}

std::string faultAtLine(const std::string& fileName, std::uint64_t line, std::string_view reason) {
  return placeInFile(fileName, line).append(": ").append(reason);
}

}  // namespace tovak::text
