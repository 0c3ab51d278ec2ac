#include "formats/delimited/format_preview.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "formats/delimited/delimited_line.h"
#include "formats/delimited/delimited_writer.h"
#include "formats/delimited/field_codes.h"
#include "run/projection_code.h"
#include "text/angle.h"
#include "text/file_identity.h"
#include "text/line_reader.h"
#include "text/number.h"

namespace tovak::formats::delimited {
namespace {

constexpr std::size_t kLines = 20;
constexpr std::size_t kLineLength = 4096;

/// The sample in a system of either kind.
struct SampleSystem {
  const char* label;
  std::int16_t code;
  double northing;
  double easting;
};

constexpr SampleSystem kPlane = {"Northing, easting", 4, 2503013.737, 2193223.445};
constexpr SampleSystem kAngles = {"Latitude, longitude", 0, 48.946947602, -95.790044250};

run::PointRecord samplePoint() {
  run::PointRecord point;
  run::resetPoint(point);
  point.pointNumber = "101";
  point.description = "Alder Bridge";
  point.Elevation = 912.482;
  point.geoidHeight = "-27.105";
  point.ellipsoidHeight = "885.377";
  point.anythingElse = "rest of the line";
  point.phField = "PH1";
  point.owField = "OWN1";
  point.odField = "TO 1";
  point.featureCode = "FE1";
  point.figure = "FG1";
  point.station = "12+50.00";
  point.offset = "3.25";
  point.comment = "a comment";
  for (std::size_t i = 0; i < point.attributes.size(); ++i) {
    point.attributes[i] = "attribute ";
    text::appendWhole(point.attributes[i], static_cast<std::int64_t>(i) + 1);
  }
  return point;
}

std::string wholeText(std::size_t value) {
  std::string text;
  text::appendWhole(text, static_cast<std::int64_t>(value));
  return text;
}

bool isZeroCoordinate(std::string_view field, bool latLong, std::string& scratch) {
  if (!latLong) return text::leadingNumber(field) == 0.0;
  // For zero the form makes no difference.
  const text::AngleReading angle =
      text::readAngle(field, text::AngleForm::DecimalDegrees, text::AngleAxis::Latitude, scratch);
  return angle.degrees == 0.0 && angle.fault == text::AngleFault::None;
}

PreviewRow divide(DelimitedLine& fields, std::string_view line, bool latLong, std::string& scratch) {
  if (!fields.start(line)) return {.cells = {{.text = std::string(line)}}, .undivided = true};
  PreviewRow row;
  // Of two fields of one coordinate the last one counts.
  std::array<bool, 2> found = {false, false};
  DelimitedLine::Field field;
  while (fields.next(field)) {
    const bool coordinate = field.code == kFieldY || field.code == kFieldX;
    const bool zero = coordinate && isZeroCoordinate(field.text, latLong, scratch);
    if (coordinate) found[static_cast<std::size_t>(field.code)] = !zero;
    row.cells.push_back({.text = std::string(field.text), .zeroCoordinate = zero});
  }
  row.point = found[kFieldY] && found[kFieldX];
  return row;
}

/// What becomes of the lines.
std::string accountOf(const FormatPreview& preview, const std::vector<std::int16_t>& codes) {
  const auto lacks = [&codes](std::int16_t code) { return std::find(codes.begin(), codes.end(), code) == codes.end(); };
  if (lacks(kFieldY) || lacks(kFieldX)) {
    return "Without a field for each of the two coordinates no line is read as a point.";
  }
  const auto points = static_cast<std::size_t>(
      std::count_if(preview.rows.begin(), preview.rows.end(), [](const PreviewRow& row) { return row.point; }));
  std::string note =
      wholeText(points) + " of the first " + wholeText(preview.rows.size()) + " lines are read as points";
  if (points == preview.rows.size()) return note + '.';
  return note + "; marked coordinates read as 0, and their lines are passed over.";
}

void addLines(FormatPreview& preview, const char* label, std::string_view lines) {
  // A delimiter that is a line feed makes more than one line.
  while (true) {
    const std::size_t end = std::min(lines.find('\n'), lines.size());
    preview.rows.push_back({.label = label, .cells = {{.text = std::string(lines.substr(0, end))}}});
    if (end == lines.size()) return;
    lines.remove_prefix(end + 1);
    label = "";
  }
}

std::string noteOnHeader(const run::DelimitedFormat& format) {
  if (!format.includeHeader) return {};
  if (format.headerLine.empty()) return "The header line is empty, so none is written.";
  const char last = format.headerLine.back();
  if (last == format.delimiter || last == ' ') return {};
  return "The last character of the header line is not written: end it with the delimiter.";
}

}  // namespace

SourceStart readSourceStart(const std::string& fileName) {
  if (fileName.empty()) return {{}, "No source file is chosen yet."};
  if (std::string reason = text::whyNotLookedInto(fileName); !reason.empty()) return {{}, std::move(reason)};
  SourceStart start;
  text::LineReader lines;
  lines.open(fileName);
  std::string_view line;
  while (start.lines.size() < kLines && lines.next(line)) start.lines.emplace_back(line.substr(0, kLineLength));
  start.problem = lines.error();
  return start;
}

FormatPreview previewSource(const run::DelimitedFormat& format, const SourceStart& start, bool latLong) {
  const std::vector<std::int16_t> codes = parseFieldCodes(format.fieldCodes);
  FormatPreview preview;
  for (const std::int16_t code : codes) {
    preview.columns.emplace_back(fieldHeaderName(code));
    if (code == kFieldAnythingElse) break;
  }
  DelimitedLine fields(format);
  std::string scratch;
  for (const std::string& line : start.lines) {
    preview.rows.push_back(divide(fields, line, latLong, scratch));
    preview.rows.back().label = wholeText(preview.rows.size());
  }
  if (!preview.rows.empty()) preview.note = accountOf(preview, codes);
  if (preview.rows.empty() && start.problem.empty()) preview.note = "The source file is empty.";
  if (!start.problem.empty()) preview.note += (preview.note.empty() ? "" : " ") + start.problem;
  return preview;
}

FormatPreview previewTarget(const run::DelimitedFormat& format, run::RunSettings settings, SampleSystems systems) {
  const bool angles = run::isLatLong(settings.TargetProjectionCode);
  settings.targetDelimited = format;
  FormatPreview preview = {.columns = {"Output file"}, .note = noteOnHeader(format)};
  if (const std::optional<std::string> header = delimitedHeader(format)) addLines(preview, "Header", *header);
  run::PointRecord point = samplePoint();
  for (const SampleSystem& system : {kPlane, kAngles}) {
    if (systems == SampleSystems::OfTarget && run::isLatLong(system.code) != angles) continue;
    settings.TargetProjectionCode = system.code;
    point.OutNorthLat = system.northing;
    point.OutEastLon = system.easting;
    addLines(preview, system.label, delimitedLine(settings, point));
  }
  return preview;
}

}  // namespace tovak::formats::delimited
