#include "report/report_writer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "report/point_texts.h"
#include "report/report_lines.h"
#include "run/labels.h"
#include "run/projection_code.h"
#include "text/fixed_columns.h"
#include "text/native_path.h"
#include "text/number.h"

namespace tovak::report {
namespace {

constexpr int kPointsPerPage = 14;

constexpr std::size_t kHeadColumn = 6;
constexpr std::size_t kUnitsColumn = 17;
constexpr std::size_t kDescriptionColumn = 22;
constexpr std::size_t kSourceColumn = 9;
constexpr std::size_t kTargetColumn = 30;
constexpr std::size_t kThetaColumn = 47;
constexpr std::size_t kHeightColumn = 68;

constexpr std::string_view kUnitsLine = "1 meter = 3.280833333 (39.37/12) U.S. Survey feet";
constexpr std::string_view kNewPage = "\f";

constexpr std::size_t kHeightWidth = 9;
constexpr std::size_t kGridWidth = 11;
constexpr std::size_t kWideGridWidth = 12;  ///< of transverse Mercator northings in feet
constexpr std::size_t kAngleWidth = 15;

/// How the coordinates of one side are placed in a block.
struct Side {
  std::size_t column;
  bool latLong;
  std::size_t width;
};

Side makeSide(std::size_t column, std::int16_t code, bool metres, std::string_view heading) {
  if (run::isLatLong(code)) return {column, true, kAngleWidth};
  const bool wide =
      heading.find("Univ") != std::string_view::npos && run::unitLabels(code, metres).coordinateLabel == "(ft)";
  return {column, false, wide ? kWideGridWidth : kGridWidth};
}

/// Grid projections of which the convergence angle is shown.
bool showsTheta(std::int16_t code) {
  const bool countyZone = code >= run::kFirstCountyZone && code <= run::kLastCountyZone;
  return run::isStatePlane(code) || countyZone || code == run::kLastProjectionCode;
}

std::string makeTitle(const run::ReportHeading& heading) {
  std::string title = "Tovak (V" + heading.version + ") Report        Conversion Date:";
  text::appendDate(title, heading.date, '/');
  return title;
}

std::string makeColumnHead(const run::RunSettings& settings) {
  std::string head = "Point Number      Point Description                             Vertical (";
  head += run::verticalDatumLabel(settings.verticalDatum);
  return head += ')';
}

/// What is known of the file that a report is to be appended to.
struct EarlierContents {
  bool report = false;    ///< a report is among them
  bool openLine = false;  ///< the last line has no end
};

/// Reads in blocks from the end, near which an earlier report has its last line of units, whatever the bytes are. A
/// file that cannot be read is taken for an empty one: the worst result is a missing page break, and if it cannot be
/// written either, that is reported.
EarlierContents examine(const std::string& fileName) {
  EarlierContents contents;
  std::error_code unknown;
  if (!std::filesystem::is_regular_file(text::pathOf(fileName), unknown)) return contents;
  std::ifstream file(text::pathOf(fileName), std::ios::binary | std::ios::ate);
  constexpr std::ptrdiff_t kBlockSize = 65536;
  constexpr std::ptrdiff_t kOverlap = kReportMark.size() - 1;
  std::array<char, kBlockSize + kOverlap> block{};
  std::ptrdiff_t kept = 0;  // of the block behind
  for (std::ptrdiff_t left = file.tellg(), size = left; left > 0 && !contents.report;) {
    const std::ptrdiff_t count = std::min(left, kBlockSize);
    std::copy_backward(block.begin(), block.begin() + kept, block.begin() + count + kept);
    left -= count;
    if (!file.seekg(left).read(block.data(), count)) break;
    const std::string_view read(block.data(), static_cast<std::size_t>(count + kept));
    if (left + count == size) contents.openLine = read.back() != '\n';
    contents.report = read.find(kReportMark) != std::string_view::npos;
    kept = std::min(kOverlap, count + kept);
  }
  return contents;
}

class ReportWriter final : public run::PointWriter {
 public:
  explicit ReportWriter(const run::ReportContext& context)
      : lines_(context.lines),
        settings_(context.settings),
        heading_(context.heading),
        line_(context.lines),
        source_(makeSide(kSourceColumn, settings_.SourceProjectionCode, settings_.source.metres, heading_.source)),
        target_(makeSide(kTargetColumn, settings_.TargetProjectionCode, settings_.target.metres, heading_.target)),
        showsTheta_(tovak::report::showsTheta(settings_.TargetProjectionCode)),
        title_(makeTitle(heading_)),
        columnHead_(makeColumnHead(settings_)) {}

  bool begin() override;
  bool write(const run::PointRecord& point) override;
  bool writeRefused(const run::PointRecord& point, std::string_view reason) override;
  bool end() override;

 private:
  bool putLine(std::size_t column, std::string_view before, std::string_view text = {});
  bool startPage();
  bool closePage();
  bool putFiles();
  bool putColumnHeads();
  bool startBlock(const run::PointRecord& point, std::string_view text);
  void putCoordinate(const Side& side, std::string_view gridLabel, std::string_view angleLabel, std::string_view text);
  void putElevation(std::string_view label);

  text::LineWriter& lines_;
  const run::RunSettings& settings_;
  const run::ReportHeading& heading_;
  text::ColumnLine line_;
  const Side source_;
  const Side target_;
  const bool showsTheta_;
  const std::string title_;
  const std::string columnHead_;
  int page_ = 0;
  int pointsOnPage_ = 0;
  PointTexts texts_;
};

bool ReportWriter::putLine(std::size_t column, std::string_view before, std::string_view text) {
  line_.advanceTo(column);
  line_.put(before);
  line_.putText(text);
  return line_.end();
}

bool ReportWriter::begin() {
  return startPage();
}

bool ReportWriter::startPage() {
  if (page_ > 0 && !(closePage() && lines_.writeLine(kNewPage))) return false;
  ++page_;
  pointsOnPage_ = 0;
  line_.advanceTo(kLeftColumn);
  line_.put(title_);
  return putLine(kPageColumn, pageText(page_)) && putLine(kHeadColumn, "Source Proj:", heading_.source) &&
         putLine(kHeadColumn, "Target Proj:", heading_.target) && putFiles() && putColumnHeads();
}

bool ReportWriter::putFiles() {
  const std::string& input = settings_.source.fileName;
  const std::string& output = settings_.target.fileName;
  const bool put = input.empty() ? putLine(kHeadColumn, "Source Data:Input From Keyboard")
                                 : putLine(kHeadColumn, "Input  File:", input);
  if (!put) return false;
  if (!(output.empty() ? putLine(kHeadColumn, "Target Data:Output To Screen")
                       : putLine(kHeadColumn, "Output File:", output))) {
    return false;
  }
  const std::string& description = settings_.reportDescription;
  return description.empty() || putLine(kHeadColumn, "Description:", description);
}

bool ReportWriter::putColumnHeads() {
  const auto unit = [](std::int16_t code, const run::SideSettings& side) {
    return run::unitLabels(code, side.metres).shortLabel;
  };
  if (!putLine(kLeftColumn, ruleText()) || !putLine(kLeftColumn, columnHead_)) return false;
  line_.advanceTo(kLeftColumn);
  line_.put("     Source ");
  line_.put(unit(settings_.SourceProjectionCode, settings_.source));
  return putLine(kTargetColumn, "Target ", unit(settings_.TargetProjectionCode, settings_.target));
}

bool ReportWriter::closePage() {
  return putLine(kLeftColumn, ruleText()) && putLine(kUnitsColumn, kUnitsLine);
}

/// The line of hyphens, and after it the first line up to its text, to which more can be added.
bool ReportWriter::startBlock(const run::PointRecord& point, std::string_view text) {
  static const std::string kHyphens(kRuleLength, '-');
  if (pointsOnPage_ == kPointsPerPage && !startPage()) return false;
  ++pointsOnPage_;
  line_.advanceTo(kLeftColumn);
  line_.put(kHyphens);
  line_.nextLine();
  line_.advanceTo(kLeftColumn);
  line_.putText(point.pointNumber);
  line_.advanceTo(kDescriptionColumn);
  line_.putText(text);
  return true;
}

void ReportWriter::putCoordinate(const Side& side, std::string_view gridLabel, std::string_view angleLabel,
                                 std::string_view text) {
  line_.advanceTo(side.column);
  line_.put(side.latLong ? angleLabel : gridLabel);
  line_.putRightAligned(side.width, text);
}

void ReportWriter::putElevation(std::string_view label) {
  line_.advanceTo(kHeightColumn);
  line_.put(label);
  line_.putRightAligned(kHeightWidth, texts_.elevation);
}

bool ReportWriter::write(const run::PointRecord& point) {
  makePointTexts(point, settings_, texts_);
  if (!startBlock(point, point.description)) return false;
  if (point.Elevation != 0) putElevation("ZC:");
  line_.nextLine();

  putCoordinate(source_, "YC:", "LT:", texts_.northing);
  putCoordinate(target_, "YC:", "LT:", texts_.targetNorthing);
  if (showsTheta_) {
    line_.advanceTo(kThetaColumn);
    line_.put("Theta:");
    const std::string_view result = point.OutInfo;
    line_.put(result.substr(0, result.find(' ')));
  }
  // Geoid and ellipsoid heights only decide whether the elevation is shown a second time.
  if (text::leadingNumber(point.geoidHeight) != 0) putElevation("HG:");
  line_.nextLine();

  putCoordinate(source_, "XC:", "LG:", texts_.easting);
  putCoordinate(target_, "XC:", "LG:", texts_.targetEasting);
  if (text::leadingNumber(point.ellipsoidHeight) != 0) putElevation("HE:");
  return line_.end();
}

bool ReportWriter::writeRefused(const run::PointRecord& point, std::string_view reason) {
  return startBlock(point, reason) && line_.end();
}

bool ReportWriter::end() {
  return closePage();
}

}  // namespace

std::unique_ptr<run::PointWriter> makeReportWriter(const run::ReportContext& context) {
  return std::make_unique<ReportWriter>(context);
}

std::string reportJoint(const std::string& fileName) {
  const EarlierContents earlier = examine(fileName);
  std::string joint;
  if (earlier.openLine) joint += text::LineWriter::kLineEnd;
  if (earlier.report) joint.append(kNewPage).append(text::LineWriter::kLineEnd);
  return joint;
}

}  // namespace tovak::report
