/// bench_points COUNT SEPARATOR FIELDS
///
/// Prints COUNT made-up points to standard output, one on each line: the fields that the letters of FIELDS name (y
/// latitude, x longitude, n name, i number, z elevation), with SEPARATOR between them. Angles are decimal degrees with
/// nine decimals between 43.6 and 45.5 north and 91.3 and 96.8 west, in the south zone; elevations have three decimals.
/// The same arguments always give the same bytes, and all files with the same COUNT hold the same points.
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <random>
#include <string_view>

namespace {

struct Point {
  std::uint64_t latitude;   ///< in 1e-9 degrees north
  std::uint64_t longitude;  ///< in 1e-9 degrees west
  std::uint64_t elevation;  ///< in thousandths
};

/// A whole number from `first` to `first + count - 1`. The standard library's distributions differ from one
/// implementation to another.
std::uint64_t uniform(std::mt19937_64& random, std::uint64_t first, std::uint64_t count) {
  return first + random() % count;
}

void printFixed(std::uint64_t value, std::uint64_t unit, int decimals) {
  std::printf("%llu.%0*llu", static_cast<unsigned long long>(value / unit), decimals,
              static_cast<unsigned long long>(value % unit));
}

void printField(char field, const Point& point, unsigned long number) {
  constexpr std::uint64_t kNano = 1'000'000'000;
  switch (field) {
    case 'y':
      printFixed(point.latitude, kNano, 9);
      break;
    case 'x':
      std::putchar('-');
      printFixed(point.longitude, kNano, 9);
      break;
    case 'z':
      printFixed(point.elevation, 1000, 3);
      break;
    case 'n':
      std::printf("STA%06lu", number);
      break;
    default:
      std::printf("%lu", number);
      break;
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const unsigned long count = std::strtoul(argv[1], nullptr, 10);
  const char separator = argv[2][0];
  const std::string_view fields = argv[3];
  std::mt19937_64 random(20240601);
  for (unsigned long number = 1; number <= count; ++number) {
    const Point point{.latitude = uniform(random, 43'600'000'000, 1'900'000'000),
                      .longitude = uniform(random, 91'300'000'000, 5'500'000'000),
                      .elevation = uniform(random, 600'000, 1'100'000)};
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (i > 0) std::putchar(separator);
      printField(fields[i], point, number);
    }
    std::putchar('\n');
  }
  return std::fflush(stdout) == 0 && std::ferror(stdout) == 0 ? 0 : 1;
}
