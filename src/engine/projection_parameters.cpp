#include "engine/projection_parameters.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "text/number.h"
#include "text/strings.h"

namespace tovak::engine {
namespace {

struct Parameter {
  std::string_view name;
  std::string_view value;
};

bool isNumber(std::string_view value) {
  const std::optional<double> number = text::strictNumber(value);
  return number && std::isfinite(*number);
}

bool isZone(std::string_view value) {
  const std::optional<double> number = text::strictNumber(value);
  return number && *number >= 1.0 && *number <= 60.0 && *number == std::floor(*number);
}

/// Takes digits, possibly with decimals, and the mark after them off the beginning of `text`; the mark may be missing
/// only at the end.
bool takePart(std::string_view& text, char mark, double limit) {
  if (text.empty() || text.front() < '0' || text.front() > '9') return false;
  const std::size_t length = std::min(text.find_first_not_of("0123456789."), text.size());
  const std::optional<double> number = text::strictNumber(text.substr(0, length));
  text.remove_prefix(length);
  const bool marked = !text.empty() && text.front() == mark;
  if (marked) text.remove_prefix(1);
  return number && *number < limit && (marked || text.empty());
}

/// Decimal degrees, or degrees, minutes and seconds as in 45d37'30.5", with a sign or a letter of the hemisphere.
bool isAngle(std::string_view value) {
  if (isNumber(value)) return true;
  if (!value.empty() && (value.front() == '-' || value.front() == '+')) value.remove_prefix(1);
  if (!value.empty() && std::string_view("NSEWnsew").find(value.back()) != std::string_view::npos)
    value.remove_suffix(1);
  if (!takePart(value, 'd', 360.0)) return false;
  if (!value.empty() && !takePart(value, '\'', 60.0)) return false;
  return value.empty() || (takePart(value, '"', 60.0) && value.empty());
}

bool isWord(std::string_view value) {
  return !value.empty() && std::ranges::all_of(value, [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
  });
}

constexpr std::string_view kSurveyFeet = "us-ft";

bool isUnit(std::string_view value) {
  return value == "m" || value == kSurveyFeet;
}

bool isCrs(std::string_view value) {
  return value == "crs";
}

/// What programs add to NAD83 systems: a zero shift to WGS 84.
bool isNoShift(std::string_view value) {
  return value == "0,0,0" || value == "0,0,0,0,0,0,0";
}

bool isAbsent(std::string_view value) {
  return value.empty();
}

/// The parameters a definition may have. Those that only describe the ellipsoid or the unit are not passed on.
struct Known {
  std::string_view name;
  bool (*accepts)(std::string_view value);
  bool handedOn;
};

constexpr Known kKnown[] = {
    {"proj", isWord, true},        {"lat_0", isAngle, true},     {"lat_1", isAngle, true},
    {"lat_2", isAngle, true},      {"lat_ts", isAngle, true},    {"lon_0", isAngle, true},
    {"lon_1", isAngle, true},      {"lon_2", isAngle, true},     {"lonc", isAngle, true},
    {"alpha", isAngle, true},      {"gamma", isAngle, true},     {"k", isNumber, true},
    {"k_0", isNumber, true},       {"x_0", isNumber, true},      {"y_0", isNumber, true},
    {"zone", isZone, true},        {"no_uoff", isAbsent, true},  {"no_off", isAbsent, true},
    {"no_rot", isAbsent, true},    {"approx", isAbsent, true},   {"algo", isWord, true},
    {"ellps", isWord, false},      {"datum", isWord, false},     {"units", isUnit, false},
    {"type", isCrs, false},        {"no_defs", isAbsent, false}, {"wktext", isAbsent, false},
    {"towgs84", isNoShift, false},
};

constexpr Datum kDatums[] = {Datum::nad27, Datum::nad83};

constexpr std::string_view ellipsoidOf(Datum datum) {
  return datum == Datum::nad27 ? "clrk66" : "GRS80";
}

constexpr const char* kOtherEllipsoid = " is neither the ellipsoid of NAD83 (GRS80) nor that of NAD27 (clrk66)";

std::vector<Parameter> split(std::string_view list) {
  std::vector<Parameter> parameters;
  while (!(list = text::trimBlanks(list)).empty()) {
    std::string_view token = list.substr(0, list.find(' '));
    list.remove_prefix(token.size());
    if (token.front() == '+') token.remove_prefix(1);
    const std::size_t sign = std::min(token.find('='), token.size());
    parameters.push_back({token.substr(0, sign), token.substr(std::min(sign + 1, token.size()))});
  }
  return parameters;
}

std::string quoted(const Parameter& parameter) {
  std::string text = "\"+";
  text += parameter.name;
  if (!parameter.value.empty()) (text += '=') += parameter.value;
  return text += '"';
}

/// Where a system's ellipsoid belongs to neither datum, PROJ gives its size.
bool isFigureOfTheEarth(std::string_view name) {
  constexpr std::string_view kNames[] = {"a", "b", "rf", "f", "R"};
  return std::ranges::find(kNames, name) != std::end(kNames);
}

std::string faultIn(const std::vector<Parameter>& parameters, std::size_t index) {
  const Parameter& parameter = parameters[index];
  const auto* const known = std::ranges::find(kKnown, parameter.name, &Known::name);
  if (isFigureOfTheEarth(parameter.name)) return quoted(parameter) + kOtherEllipsoid;
  if (known == std::end(kKnown)) return quoted(parameter) + " is no parameter of a map projection in metres";
  if (known->accepts == isUnit && !isUnit(parameter.value))
    return quoted(parameter) + " is " + refusedUnit(parameter.value);
  if (!known->accepts(parameter.value)) return quoted(parameter) + " has no value that can be used";
  const auto first = std::ranges::find(parameters, parameter.name, &Parameter::name);
  return &*first == &parameter ? std::string() : quoted(parameter) + " is a second value";
}

/// The datum that a parameter names, if it names one.
std::optional<Datum> namedDatum(const Parameter& parameter, std::string& reason) {
  for (const Datum datum : kDatums) {
    if (parameter.name == "datum" && parameter.value == nameOf(datum)) return datum;
    if (parameter.name == "ellps" && parameter.value == ellipsoidOf(datum)) return datum;
  }
  if (parameter.name == "datum" || parameter.name == "ellps") reason = quoted(parameter) + kOtherEllipsoid;
  return std::nullopt;
}

}  // namespace

std::string refusedUnit(std::string_view unit) {
  constexpr const char* kUsed = "metres and U.S. survey feet are used here";
  return std::string(unit == "ft" ? "the international foot (0.3048 m): only "
                                  : "neither the metre nor the U.S. survey foot: only ") +
         kUsed;
}

text::Result<Parameters> readParameters(std::string_view list, std::optional<Datum> expected) {
  using Read = text::Result<Parameters>;
  const std::vector<Parameter> parameters = split(list);
  Parameters result;
  std::optional<Datum> datum = expected;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const Parameter& parameter = parameters[i];
    std::string reason = faultIn(parameters, i);
    if (!reason.empty()) return Read::failure(reason);
    const std::optional<Datum> named = namedDatum(parameter, reason);
    if (named && datum && *named != *datum) reason = quoted(parameter) + " is of another datum";
    if (!reason.empty()) return Read::failure(reason);
    if (named) datum = named;
    if (parameter.name == "units") result.feet = parameter.value == kSurveyFeet;
    if (!std::ranges::find(kKnown, parameter.name, &Known::name)->handedOn) continue;
    result.list += '+';
    result.list += parameter.name;
    if (!parameter.value.empty()) (result.list += '=') += parameter.value;
    result.list += ' ';
  }
  if (std::ranges::find(parameters, "proj", &Parameter::name) == parameters.end()) {
    return Read::failure("no projection is named by \"+proj=\"");
  }
  if (!datum) return Read::failure(R"(neither "+ellps=GRS80" (NAD83) nor "+ellps=clrk66" (NAD27) is given)");
  result.datum = *datum;
  (result.list += "+ellps=") += ellipsoidOf(*datum);
  return result;
}

FalseOrigin falseOrigin(std::string_view parameters) {
  FalseOrigin origin;
  for (const Parameter& parameter : split(parameters)) {
    if (parameter.name == "x_0") origin.easting = text::leadingNumber(parameter.value);
    if (parameter.name == "y_0") origin.northing = text::leadingNumber(parameter.value);
    if (parameter.name == "proj" && parameter.value == "utm") origin.easting = 500000.0;
  }
  return origin;
}

}  // namespace tovak::engine
