#include "selection/file_content.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "run/format_index.h"
#include "text/file_identity.h"
#include "text/fixed_columns.h"
#include "text/line_reader.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::selection {
namespace {

using Lines = std::vector<std::string>;

constexpr std::size_t kLines = 200;
constexpr std::size_t kBytes = std::size_t{256} << 10;

bool holds(std::string_view line, std::string_view part) {
  return text::findIgnoringCase(line, part) != std::string_view::npos;
}

bool begins(std::string_view line, std::string_view start) {
  return text::equalsIgnoringCase(text::trimBlanks(line).substr(0, start.size()), start);
}

/// Lines that may hold points: neither blank nor a comment.
Lines pointLines(const Lines& lines) {
  Lines kept;
  std::ranges::copy_if(lines, std::back_inserter(kept),
                       [](const std::string& line) { return !text::trimBlanks(line).empty() && line.front() != '$'; });
  return kept;
}

template <typename Condition>
bool most(const Lines& lines, Condition holds) {
  constexpr std::ptrdiff_t kOf = 5;  // four of five
  const auto count = std::ranges::count_if(lines, holds);
  return count > 0 && count * kOf >= static_cast<std::ptrdiff_t>(lines.size()) * (kOf - 1);
}

bool isGeodeticDatabase(const Lines& lines) {
  return !lines.empty() && holds(lines.front(), "NAME") && holds(lines.front(), "NAD83(");
}

/// The agency's batch files have a county in every line.
bool isAgencyBatch(const Lines& lines) {
  return std::ranges::any_of(
      lines, [](const std::string& line) { return holds(line, ",county,") || holds(line, ", county,"); });
}

bool isSdms(const Lines& lines) {
  return std::ranges::any_of(lines, [](const std::string& line) { return begins(line, "AC:"); }) &&
         std::ranges::any_of(lines, [](const std::string& line) { return begins(line, "PN:") || begins(line, "YC:"); });
}

bool isCoordsLog(const Lines& lines) {
  return std::ranges::any_of(lines, [](const std::string& line) { return begins(line, "Coords.log"); });
}

bool isGeopak(const Lines& lines) {
  for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
    const bool heading = holds(lines[i], " Point") && holds(lines[i], " Station");
    if (heading && lines[i + 1].find_first_not_of(" -") == std::string::npos && holds(lines[i + 1], "---")) return true;
  }
  return false;
}

bool isBlueBook(const Lines& lines) {
  return std::ranges::any_of(lines, [](const std::string& line) {
    const std::string_view code = text::columns(line, 7, 10);
    return code == "*80*" || code == "*81*";
  });
}

bool isWayPointsPlus(const Lines& lines) {
  return std::ranges::any_of(lines, [](const std::string& line) { return begins(line, "WP,DMS,"); });
}

std::optional<double> numberIn(std::string_view field) {
  return text::strictNumber(field);
}

/// Latitude and longitude, and three texts in quotation marks.
bool isMaptech(const Lines& lines) {
  return most(pointLines(lines), [](std::string_view line) {
    const bool position = numberIn(text::takeField(line, ',')) && numberIn(text::takeField(line, ','));
    for (int i = 0; position && i < 3; ++i) {
      if (!text::trimBlanks(text::takeField(line, ',')).starts_with('"')) return false;
    }
    return position;
  });
}

/// A northing may be wider than its columns, but begins in them.
bool isEightyColumns(const Lines& lines) {
  return most(pointLines(lines), [](std::string_view line) {
    const std::string_view numbers = text::columns(line, 35, 55);
    return line.size() <= 80 && numbers.find('.') != std::string_view::npos &&
           numbers.find_first_of(",;|\t") == std::string_view::npos && numberIn(text::columns(line, 35, 45)) &&
           text::parseLeadingNumber(text::columns(line, 46, 55)).length != 0;
  });
}

struct Kind {
  bool (*matches)(const Lines& lines);
  FileContent content;
};

/// The first that matches counts.
constexpr std::array<Kind, 8> kKinds = {{
    {isGeodeticDatabase, {run::source::GeodeticCsv, ',', "its first line has the headings of the geodetic database"}},
    {isSdms, {run::source::Sdms, ',', "it has sections that begin with AC: and tags such as PN:"}},
    {isCoordsLog, {run::source::CoordsLog, ',', "its heading is that of a Coords.log listing"}},
    {isGeopak, {run::source::GeopakPrintPoints, ',', "it has the headings of a Geopak listing of points"}},
    {isBlueBook, {run::source::BlueBook, ',', "it has *80* or *81* records"}},
    {isWayPointsPlus, {run::source::WayPointsPlus, ',', "its lines begin with WP,DMS"}},
    {isMaptech, {run::source::Maptech, ',', "its lines are a latitude, a longitude and texts in quotation marks"}},
    {isEightyColumns, {run::source::Vesko80Column, ',', "its numbers stand in the columns of the 80 column format"}},
}};

struct Delimiter {
  char character;
  std::string_view sign;
};
constexpr std::array<Delimiter, 4> kDelimiters = {{{',', "its fields are separated by commas"},
                                                   {';', "its fields are separated by semicolons"},
                                                   {'\t', "its fields are separated by tabs"},
                                                   {'|', "its fields are separated by \"|\""}}};

/// Two numbers among the fields of a line, which may be angles with marks or blanks between their parts.
bool holdsTwoNumbers(std::string_view line, char delimiter) {
  int numbers = 0;
  bool separated = false;
  while (!line.empty()) {
    separated = separated || line.find(delimiter) != std::string_view::npos;
    const std::string_view field = text::trimBlanks(text::takeField(line, delimiter));
    if (text::parseLeadingNumber(field).length != 0) ++numbers;
  }
  return separated && numbers >= 2;
}

std::optional<FileContent> recognizeDelimited(const Lines& lines) {
  const Lines points = pointLines(lines);
  // A line of headings is not a point.
  const Lines below(points.size() > 1 ? points.begin() + 1 : points.begin(), points.end());
  for (const Delimiter& delimiter : kDelimiters) {
    if (most(below, [&](std::string_view line) { return holdsTwoNumbers(line, delimiter.character); })) {
      return FileContent{run::source::CommaDelimited, delimiter.character, delimiter.sign};
    }
  }
  return std::nullopt;
}

}  // namespace

std::vector<std::string> readSample(const std::string& fileName) {
  std::vector<std::string> sample;
  if (fileName.empty() || !text::whyNotLookedInto(fileName).empty()) return sample;
  text::LineReader lines;
  lines.limit(kBytes);
  lines.open(fileName);
  for (std::string_view line; sample.size() < kLines && lines.next(line);) sample.emplace_back(line);
  return sample;
}

std::optional<FileContent> recognizeContent(const std::vector<std::string>& lines) {
  for (const Kind& kind : kKinds) {
    if (kind.matches(lines)) return kind.content;
  }
  if (isAgencyBatch(lines)) return std::nullopt;
  return recognizeDelimited(lines);
}

}  // namespace tovak::selection
