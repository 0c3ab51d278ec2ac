#include "ui/plan_measures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "text/angle.h"
#include "text/number.h"
#include "ui/qt_text.h"

namespace tovak::ui {
namespace {

// GRS80
constexpr double kEquatorRadius = 6378137.0;
constexpr double kEccentricitySquared = 0.00669438002290;

constexpr double kFeetPerMetre = 3937.0 / 1200.0;
constexpr double kFeetPerMile = 5280.0;
constexpr double kSecond = 1.0 / 3600.0;
constexpr double kMinute = 1.0 / 60.0;

double root(double latitude) {
  const double sine = std::sin(radians(latitude));
  return std::sqrt(1.0 - kEccentricitySquared * sine * sine);
}

/// The radius of curvature in the prime vertical.
double primeVertical(double latitude) {
  return kEquatorRadius / root(latitude);
}
double meridianRadius(double latitude) {
  return kEquatorRadius * (1.0 - kEccentricitySquared) / std::pow(root(latitude), 3);
}

int decimalsOfSeconds(double step) {
  return std::clamp(static_cast<int>(std::ceil(-std::log10(step * 3600.0) - 1e-9)), 0, 5);
}

/// Digits of the whole part in groups of three.
QString grouped(double value, int decimals) {
  std::string text;
  text::appendFixed(text, value, decimals);
  const std::size_t point = std::min(text.find('.'), text.size());
  for (std::size_t at = point; at > 3; at -= 3) text.insert(at - 3, ",");
  return toQString(text);
}

/// 1, 2 or 5 times a power of ten.
double roundLength(double most) {
  const double power = std::pow(10.0, std::floor(std::log10(most)));
  for (const double times : {5.0, 2.0}) {
    if (times * power <= most) return times * power;
  }
  return power;
}

QString plainNumber(double value) {
  return grouped(value, value >= 1 ? 0 : static_cast<int>(std::ceil(-std::log10(value))));
}

}  // namespace

double metresPerDegreeOfLongitude(double latitude) {
  return radians(1.0) * primeVertical(latitude) * std::cos(radians(latitude));
}

double graticuleStep(double least) {
  constexpr std::array kWhole = {1.0, 2.0, 5.0, 10.0, 20.0, 30.0};
  for (const double unit : {kSecond * 0.0001, kSecond * 0.001, kSecond * 0.01, kSecond * 0.1}) {
    for (const double times : {1.0, 2.0, 5.0}) {
      if (unit * times >= least) return unit * times;
    }
  }
  for (const double unit : {kSecond, kMinute, 1.0}) {
    for (const double times : kWhole) {
      if (unit * times >= least) return unit * times;
    }
  }
  return kWhole.back();
}

QString planAngle(double degrees, double step, PlanAxis axis) {
  // A step computed by multiplication may fall short of its unit in the last digit.
  const double finest = step * (1 + 1e-9);
  const int decimals = finest >= kSecond ? 0 : decimalsOfSeconds(step);
  const double unit = finest >= 1.0 ? 1.0 : finest >= kMinute ? kMinute : kSecond / std::pow(10.0, decimals);
  const text::SplitAngle angle = text::splitAngle(std::round(std::abs(degrees) / unit) * unit);
  std::string out;
  text::appendWhole(out, angle.degrees);
  out += "\u00B0";
  if (unit < 1.0) {
    text::appendMinutes(out, angle);
    out += "\u2032";
  }
  if (unit < kMinute) {
    text::appendWholeSeconds(out, angle);
    std::string fraction;
    text::appendSecondsFraction(fraction, angle);
    if (decimals > 0) out += '.' + fraction.substr(0, static_cast<std::size_t>(decimals));
    out += "\u2033";
  }
  const char* const hemispheres = axis == PlanAxis::latitude ? "NS" : "EW";
  const bool zero = angle.degrees == 0 && angle.minutes == 0 && angle.hundredThousandths == 0;
  if (!zero) out += std::string(" ") + hemispheres[degrees < 0 ? 1 : 0];
  return toQString(out);
}

PlanCourse planCourse(run::Place from, run::Place to) {
  // Gauss's formulas at the middle latitude.
  const double middle = (from.latitude + to.latitude) / 2;
  const double longitude = radians(to.longitude - from.longitude);
  const double north = meridianRadius(middle) * radians(to.latitude - from.latitude) * std::cos(longitude / 2);
  const double east = primeVertical(middle) * std::cos(radians(middle)) * longitude;
  const double turn = longitude * std::sin(radians(middle));
  const double azimuth = (std::atan2(east, north) - turn / 2) * 180.0 / std::numbers::pi;
  return {std::hypot(north, east), std::fmod(azimuth + 720.0, 360.0)};
}

QString distanceText(double metres, double metresPerPixel, bool feet) {
  const int decimals = metres >= 100 || metresPerPixel >= 1 ? 0 : metresPerPixel >= 0.1 ? 1 : 2;
  if (!feet) {
    return metres < 10000 ? grouped(metres, decimals) + " m" : grouped(metres / 1000, 2) + " km";
  }
  const double length = metres * kFeetPerMetre;
  const QString text = grouped(length, decimals) + " ft";
  return length < kFeetPerMile ? text : text + " (" + grouped(length / kFeetPerMile, 1) + " mi)";
}

QString wayText(const PlanCourse& course, bool feet) {
  constexpr std::array kWords = {"north", "northeast", "east", "southeast", "south", "southwest", "west", "northwest"};
  const double length = feet ? course.metres * kFeetPerMetre / kFeetPerMile : course.metres / 1000;
  const auto eighth = static_cast<std::size_t>(std::round(course.azimuth / 45.0)) % kWords.size();
  return grouped(length, length < 20 ? 1 : 0) + (feet ? " mi " : " km ") + kWords[eighth];
}

QString bearingText(double azimuth) {
  const double minutes = std::fmod(std::round(azimuth * 60.0), 21600.0);
  const bool south = minutes > 5400 && minutes < 16200;
  const bool west = minutes > 10800;
  double acute = minutes;
  if (south) acute = std::abs(10800 - minutes);
  if (!south && west) acute = 21600 - minutes;
  const text::SplitAngle angle = text::splitAngle(acute / 60.0);
  std::string out = south ? "S " : "N ";
  text::appendWhole(out, angle.degrees);
  out += "\u00B0";
  text::appendMinutes(out, angle);
  out += west ? "\u2032 W" : "\u2032 E";
  return toQString(out);
}

ScaleBar scaleBar(double metres, bool feet) {
  if (feet) {
    const double length = metres * kFeetPerMetre;
    if (length < kFeetPerMile) {
      const double bar = roundLength(length);
      return {bar / kFeetPerMetre, plainNumber(bar) + " ft"};
    }
    const double bar = roundLength(length / kFeetPerMile);
    return {bar * kFeetPerMile / kFeetPerMetre, plainNumber(bar) + " mi"};
  }
  const double bar = roundLength(metres);
  return {bar, bar < 1000 ? plainNumber(bar) + " m" : plainNumber(bar / 1000) + " km"};
}

}  // namespace tovak::ui
