/// bench_bare_loop PIPELINE FILE
///
/// The least that converting a delimited point file can cost: reads "latitude,longitude,name,number,elevation" lines in
/// blocks of 64 KiB, parses the three numbers, converts the point with one call of PROJ's pipeline (longitude and
/// latitude in degrees in, easting and northing out) and prints northing, easting and elevation with three decimals to
/// standard output in blocks of 64 KiB. It leaves out everything else that a converter does: checks, names, messages.
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <proj.h>
#include <unistd.h>

namespace {

constexpr std::size_t kBlock = 64 * 1024;
constexpr std::size_t kLongestLine = 256;

struct PjDestroy {
  void operator()(PJ* pj) const { proj_destroy(pj); }
};
using Pipeline = std::unique_ptr<PJ, PjDestroy>;

class Output {
 public:
  void line(double northing, double easting, double elevation) {
    if (buffer_.size() - used_ < kLongestLine) flush();
    number(northing, ',');
    number(easting, ',');
    number(elevation, '\n');
  }
  void flush() {
    for (std::size_t done = 0; done < used_ && good_;) {
      const ssize_t written = write(STDOUT_FILENO, buffer_.data() + done, used_ - done);
      good_ = written > 0;
      if (good_) done += static_cast<std::size_t>(written);
    }
    used_ = 0;
  }
  bool good() const { return good_; }

 private:
  void number(double value, char end) {
    char* const from = buffer_.data() + used_;
    char* const to = std::to_chars(from, from + 64, value, std::chars_format::fixed, 3).ptr;
    *to = end;
    used_ += static_cast<std::size_t>(to - from) + 1;
  }

  std::vector<char> buffer_ = std::vector<char>(kBlock);
  std::size_t used_ = 0;
  bool good_ = true;
};

/// Parses the number at the head of `line` and removes it with the separator after it.
double takeNumber(std::string_view& line) {
  double value = NAN;
  const auto result = std::from_chars(line.data(), line.data() + line.size(), value);
  line.remove_prefix(std::min(line.size(), static_cast<std::size_t>(result.ptr - line.data()) + 1));
  return value;
}

void skipField(std::string_view& line) {
  line.remove_prefix(std::min(line.size(), line.find(',') + 1));
}

void convertLine(std::string_view line, PJ* pipeline, Output& output) {
  const double latitude = takeNumber(line);
  const double longitude = takeNumber(line);
  skipField(line);
  skipField(line);
  const double elevation = takeNumber(line);
  const PJ_COORD out = proj_trans(pipeline, PJ_FWD, proj_coord(longitude, latitude, 0, HUGE_VAL));
  output.line(out.xy.y, out.xy.x, elevation);
}

bool convertFile(int file, PJ* pipeline, Output& output) {
  std::vector<char> buffer(kBlock);
  std::size_t kept = 0;
  for (;;) {
    const ssize_t count = read(file, buffer.data() + kept, buffer.size() - kept);
    if (count <= 0) return count == 0;
    std::string_view rest(buffer.data(), kept + static_cast<std::size_t>(count));
    for (std::size_t end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
      convertLine(rest.substr(0, end), pipeline, output);
      rest.remove_prefix(end + 1);
    }
    kept = rest.size();
    std::memmove(buffer.data(), rest.data(), kept);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const Pipeline pipeline(proj_create(nullptr, argv[1]));
  const int file = open(argv[2], O_RDONLY | O_CLOEXEC);
  if (pipeline == nullptr || file < 0) {
    std::fprintf(stderr, "bench_bare_loop: cannot start with \"%s\" on %s\n", argv[1], argv[2]);
    return 1;
  }
  Output output;
  const bool complete = convertFile(file, pipeline.get(), output);
  output.flush();
  close(file);
  return complete && output.good() ? 0 : 1;
}
