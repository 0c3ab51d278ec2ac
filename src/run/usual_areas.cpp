#include "run/usual_areas.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

#include "run/projection_box.h"
#include "run/projection_code.h"
#include "text/line_reader.h"
#include "text/native_path.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::run {
namespace {

constexpr char kSeparator = '|';
constexpr std::size_t kFields = 5;
/// The number of places along each edge; between two of them a limit bends by less than a metre.
constexpr int kSteps = 64;

/// Fills an area from a line, or gives the reason why it cannot.
std::string readLine(std::string_view line, UsualArea& area) {
  std::array<double, kFields> numbers{};
  for (double& number : numbers) {
    if (line.empty()) return "five numbers with \"|\" between them are expected";
    const std::optional<double> value = text::strictNumber(text::takeField(line, kSeparator));
    if (!value) return "a field is not a number";
    number = *value;
  }
  if (!line.empty()) return "five numbers with \"|\" between them are expected";
  const std::optional<std::int16_t> code = text::toInt16(numbers[0]);
  if (!code || *code != numbers[0] || *code < 0 || *code > kLastProjectionCode) {
    return "the code is not a whole number from 0 to 268";
  }
  area = {.code = *code, .south = numbers[1], .north = numbers[2], .west = numbers[3], .east = numbers[4]};
  if (area.south < -90.0 || area.north > 90.0 || !(area.south < area.north)) return "south is not below north";
  if (area.west < -180.0 || area.east > 180.0 || !(area.west < area.east)) return "west is not below east";
  return {};
}

/// Widens limits to include the places on an area's edges as the engine converts them.
class EdgeWalk {
 public:
  EdgeWalk(ConversionEngine& engine, const std::string& projectionText, std::int16_t code)
      : engine_(engine),
        target_(projectionText),
        source_(run::projectionText(isNad27(code) ? kLatLongNad27 : kLatLongNad83, false)) {}

  void visit(double latitude, double longitude) {
    double north = latitude;
    double east = longitude;
    double elevation = 0.0;
    double northing = 0.0;
    double easting = 0.0;
    if (engine_.TovakVert(north, east, elevation, source_, northing, easting, elevation, target_, info_) >= 1) {
      refused_ = true;
      return;
    }
    changed_ = changed_ || northing != latitude || easting != longitude;
    limits_.south = std::min(limits_.south, northing);
    limits_.north = std::max(limits_.north, northing);
    limits_.west = std::min(limits_.west, easting);
    limits_.east = std::max(limits_.east, easting);
  }

  /// Where the engine refuses part of an area, the limit is put one step beyond the last place it accepts.
  AreaLimits limits() const {
    if (!changed_) return {};
    AreaLimits limits = limits_;
    if (!refused_) return limits;
    const double height = (limits.north - limits.south) / kSteps;
    const double width = (limits.east - limits.west) / kSteps;
    return {limits.south - height, limits.north + height, limits.west - width, limits.east + width};
  }

 private:
  static constexpr double kFar = std::numeric_limits<double>::infinity();

  ConversionEngine& engine_;
  const std::string& target_;
  const std::string source_;
  std::string info_;
  AreaLimits limits_ = {.south = kFar, .north = -kFar, .west = kFar, .east = -kFar};
  bool changed_ = false;
  bool refused_ = false;
};

}  // namespace

text::Result<UsualAreas> readUsualAreas(const std::string& fileName) {
  using Areas = text::Result<UsualAreas>;
  std::error_code unknown;
  if (std::filesystem::symlink_status(text::pathOf(fileName), unknown).type() ==
      std::filesystem::file_type::not_found) {
    return UsualAreas();
  }
  UsualAreas areas;
  text::LineReader lines;
  lines.open(fileName);
  for (std::string_view line; lines.next(line);) {
    if (text::trimBlanks(line).empty() || line.front() == '#') continue;
    UsualArea area;
    std::string reason = readLine(line, area);
    if (reason.empty() && findUsualArea(areas, area.code) != nullptr) reason = "the code has an area already";
    if (!reason.empty()) return Areas::failure(text::faultAtLine(fileName, lines.lineNumber(), reason));
    areas.push_back(area);
  }
  return lines.error().empty() ? Areas(areas) : Areas::failure(lines.error());
}

const UsualArea* findUsualArea(const UsualAreas& areas, std::int16_t code) {
  const auto found = std::ranges::find(areas, code, &UsualArea::code);
  return found == areas.end() ? nullptr : &*found;
}

AreaLimits areaLimits(ConversionEngine& engine, const UsualArea& area, const std::string& projectionText) {
  EdgeWalk walk(engine, projectionText, area.code);
  for (int step = 0; step <= kSteps; ++step) {
    const double latitude = area.south + (area.north - area.south) * step / kSteps;
    const double longitude = area.west + (area.east - area.west) * step / kSteps;
    for (const double edge : {area.west, (area.west + area.east) / 2, area.east}) walk.visit(latitude, edge);
    for (const double edge : {area.south, (area.south + area.north) / 2, area.north}) walk.visit(edge, longitude);
  }
  return walk.limits();
}

}  // namespace tovak::run
