// Typed and written numbers and angles, compared with the C library's own reading of them.
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "harness.h"
#include "run/typed_point.h"
#include "text/angle.h"
#include "text/number.h"

using namespace tovak;

namespace {

bool same(double a, double b) {
  return std::memcmp(&a, &b, sizeof a) == 0 || a == b;
}

void requireAsTheLibrary(const std::string& text) {
  const text::LeadingNumber number = text::parseLeadingNumber(text);
  fuzz::require(number.length <= text.size(), "no more than there is", text);
  if (number.length > 0) {
    const std::string own = text.substr(0, number.length);
    char* end = nullptr;
    const double expected = std::strtod(own.c_str(), &end);
    fuzz::require(end == own.c_str() + own.size() && same(number.value, expected), "as the C library reads it", own);
  }
  for (int decimals = 0; decimals <= 9 && number.length > 0; ++decimals) {
    std::string printed;
    text::appendFixed(printed, number.value, decimals);
    const double half = 0.5 * std::pow(10.0, -decimals);
    if (!std::isfinite(number.value)) fuzz::require(printed.empty(), "an infinity prints as nothing");
    if (printed.empty()) continue;
    const double back = std::strtod(printed.c_str(), nullptr);
    const double slack = half + std::abs(number.value) * 4e-16;
    fuzz::require(std::abs(back - number.value) <= slack, "rounded to the nearest", text + " as " + printed);
  }
}

void requireAngle(std::string_view text, text::AngleForm form) {
  std::string scratch;
  const text::AngleReading angle = text::readAngle(text, form, text::AngleAxis::Latitude, scratch);
  if (angle.fault != text::AngleFault::None) return;
  fuzz::require(std::isfinite(angle.degrees), "an angle is finite", text);
  if (std::abs(angle.degrees) >= 1e6) return;
  std::string packed;
  text::appendPackedAngle(packed, angle.degrees);
  const text::AngleReading back = text::unpackSeconds(text::leadingNumber(packed));
  // Half a unit in the last decimal of a second, and the precision with which a double holds the packed number.
  const double slack = 0.5e-5 / 3600 + std::abs(angle.degrees) * 1e-12;
  fuzz::require(back.fault == text::AngleFault::None && std::abs(back.degrees - angle.degrees) <= slack,
                "an angle is read as it was written", packed);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::size_t comma = std::min(bytes.find(','), bytes.size());
  const std::string text(bytes.substr(0, comma));
  requireAsTheLibrary(text);
  std::string scratch;
  text::thousandsNumber(bytes, scratch);
  for (const auto form : {text::AngleForm::DegreesMinutesSeconds, text::AngleForm::DecimalDegrees,
                          text::AngleForm::DegreesDecimalMinutes}) {
    requireAngle(text, form);
    const run::TypedTexts texts = {.northing = text, .easting = std::string(bytes.substr(std::min(comma + 1, size)))};
    for (const bool latLong : {false, true}) {
      const text::Result<run::PointRecord> point = run::typedPoint(texts, latLong, form);
      fuzz::require(point.value.has_value() == point.error.empty(), "a point or a reason", bytes);
      if (point) fuzz::require(std::isfinite(point->InNorthLat) && std::isfinite(point->InEastLon), "finite", bytes);
    }
  }
  return 0;
}
