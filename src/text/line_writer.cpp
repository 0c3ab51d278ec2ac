#include "text/line_writer.h"

#include <cstddef>

namespace tovak::text {
namespace {

constexpr std::size_t kBlockSize = std::size_t{64} << 10;

}  // namespace

bool LineWriter::open(const std::string& fileName, TargetFile::Way way, TargetFile::Joint joint) {
  buffer_.clear();
  buffer_.reserve(kBlockSize);
  return target_.open(fileName, way, joint);
}

bool LineWriter::flush() {
  const bool written = target_.write(buffer_);
  buffer_.clear();
  return written;
}

bool LineWriter::write(std::string_view bytes) {
  if (text_ != nullptr) {
    *text_ += bytes;
    return true;
  }
  if (buffer_.size() + bytes.size() > kBlockSize && !flush()) return false;
  if (bytes.size() > kBlockSize) return target_.write(bytes);
  buffer_ += bytes;
  return true;
}

bool LineWriter::writeLine(std::string_view line) {
  return write(line) && write(kLineEnd);
}

bool LineWriter::finish() {
  return text_ != nullptr || (flush() && target_.finish());
}

bool LineWriter::commit() {
  return flush() && target_.commit();
}

void LineWriter::discard() {
  buffer_.clear();
  target_.discard();
}

}  // namespace tovak::text
