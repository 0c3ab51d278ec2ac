#include "formats/survey/sdms_reader.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "run/conversion_run.h"
#include "run/projection_code.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats {
namespace {

constexpr std::string_view kSectionTag = "AC:";
constexpr std::array<std::string_view, 2> kCopiedSections = {"AC:EQ", "AC:PR"};
/// Header lines that every target writes for itself.
constexpr std::array<std::string_view, 4> kOwnHeaderLines = {"$Tovak#", "HD:", "CM:Projection=", "CM:Units="};

/// What a section may hold. Memory is not to grow with a file that never begins another one.
constexpr std::size_t kMaxSectionSize = std::size_t{1} << 20;

bool startsWithIgnoringCase(std::string_view text, std::string_view start) {
  return text::equalsIgnoringCase(text.substr(0, start.size()), start);
}

bool beginsSection(std::string_view line) {
  return startsWithIgnoringCase(line, kSectionTag);
}

bool isCopiedSection(std::string_view sectionLine) {
  for (const std::string_view copied : kCopiedSections) {
    if (text::equalsIgnoringCase(sectionLine, copied)) return true;
  }
  return false;
}

bool isOwnHeaderLine(std::string_view line) {
  for (const std::string_view start : kOwnHeaderLines) {
    if (startsWithIgnoringCase(line, start)) return true;
  }
  return false;
}

/// A coordinate and what takes its place while it is zero.
struct Coordinate {
  double main = 0.0;
  double substitute = 0.0;
  double value() const { return main != 0.0 ? main : substitute; }
};

/// A point in the making.
struct Section {
  run::PointRecord& point;
  Coordinate northing;
  Coordinate easting;
};

template <std::string run::PointRecord::*Field>
void takeText(Section& section, std::string_view value) {
  section.point.*Field = value;
}

/// An empty value stands for the blanks of the default, which the end of a line does not keep.
template <std::string run::PointRecord::*Field>
void takeFilledText(Section& section, std::string_view value) {
  if (!value.empty()) section.point.*Field = value;
}

void takeComment(Section& section, std::string_view value) {
  run::addComment(section.point, value);
}

/// A zero never takes the place of a coordinate that came before it.
template <Coordinate Section::*Place, double Coordinate::*Rank>
void takeCoordinate(Section& section, std::string_view value) {
  const double number = text::leadingNumber(value);
  if (number != 0.0) section.*Place.*Rank = number;
}

void setElevation(Section& section, std::string_view value, double number) {
  section.point.Elevation = number;
  section.point.elevationDecimals = text::missingDecimals(value);
}

void takeElevation(Section& section, std::string_view value) {
  const double number = text::leadingNumber(value);
  if (number != 0.0 || section.point.Elevation == 0.0) setElevation(section, value, number);
}

void takeSubstituteElevation(Section& section, std::string_view value) {
  if (section.point.Elevation == 0.0) setElevation(section, value, text::leadingNumber(value));
}

enum class Content { Word, Measure };

struct Tag {
  std::string_view name;
  Content content;  ///< a measure holds in the units and the system of the source alone
  void (*take)(Section& section, std::string_view value);
};

using run::PointRecord;

/// Frequent tags come first.
constexpr std::array<Tag, 21> kTags = {{
    {"PN", Content::Word, takeText<&PointRecord::pointNumber>},
    {"YC", Content::Measure, takeCoordinate<&Section::northing, &Coordinate::main>},
    {"XC", Content::Measure, takeCoordinate<&Section::easting, &Coordinate::main>},
    {"ZC", Content::Measure, takeElevation},
    {"PD", Content::Word, takeText<&PointRecord::description>},
    {"LT", Content::Measure, takeText<&PointRecord::latitude>},
    {"LG", Content::Measure, takeText<&PointRecord::longitude>},
    {"CM", Content::Word, takeComment},
    {"FE", Content::Word, takeText<&PointRecord::featureCode>},
    {"ST", Content::Measure, takeText<&PointRecord::station>},
    {"OF", Content::Measure, takeText<&PointRecord::offset>},
    {"RA", Content::Word, takeText<&PointRecord::raField>},
    {"PH", Content::Word, takeFilledText<&PointRecord::phField>},
    {"OW", Content::Word, takeFilledText<&PointRecord::owField>},
    {"OD", Content::Word, takeFilledText<&PointRecord::odField>},
    {"HE", Content::Measure, takeText<&PointRecord::ellipsoidHeight>},
    {"HG", Content::Measure, takeText<&PointRecord::geoidHeight>},
    {"FG", Content::Word, takeText<&PointRecord::figure>},
    {"YY", Content::Measure, takeCoordinate<&Section::northing, &Coordinate::substitute>},
    {"XX", Content::Measure, takeCoordinate<&Section::easting, &Coordinate::substitute>},
    {"ZZ", Content::Measure, takeSubstituteElevation},
}};

const Tag* findTag(std::string_view line) {
  constexpr std::size_t kNameLength = 2;
  if (line.size() <= kNameLength || line[kNameLength] != ':') return nullptr;
  const char first = text::upperCase(line[0]);
  const char second = text::upperCase(line[1]);
  for (const Tag& tag : kTags) {
    if (tag.name[0] == first && tag.name[1] == second) return &tag;
  }
  return nullptr;
}

void keepFurtherField(PointRecord& point, std::string_view line) {
  if (point.furtherFieldCount == point.furtherFields.size()) point.furtherFields.emplace_back();
  point.furtherFields[point.furtherFieldCount++] = line;
}

class SdmsReader final : public run::PointReader {
 public:
  explicit SdmsReader(const run::SourceContext& context)
      : lines_(context.lines),
        counts_(context.counts),
        message_(context.message),
        otherLines_(context.otherLines),
        angles_(run::isLatLong(context.settings.SourceProjectionCode)) {}

  bool check() override {
    // A pass of its own that leaves no trace: the file is read again for its points.
    text::LineWriter* const otherLines = std::exchange(otherLines_, nullptr);
    const run::RecordCounts counts = counts_;
    PointRecord probe;
    run::resetPoint(probe);
    const run::ReadState state = read(probe);
    otherLines_ = otherLines;
    counts_ = counts;
    position_ = Position::Header;
    if (state == run::ReadState::Point) return lines_.rewind();
    if (state == run::ReadState::End) {
      message_ = {.text = "This SDMS file does not contain valid coordinates.  Please correct this.",
                  .title = "Invalid SDMS file",
                  .icon = run::Icon::Exclamation};
    }
    return false;
  }

  run::ReadState read(PointRecord& point) override {
    if (position_ == Position::Header) copyHeader();
    while (position_ == Position::Section) {
      if (isCopiedSection(sectionLine_)) {
        copySection();
        continue;
      }
      if (!takeSection(point)) return run::ReadState::Stopped;
      // A section that a fault has cut short is no point.
      if (lines_.fault() != text::LineReader::Fault::None) break;
      if (point.InNorthLat != 0.0 && point.InEastLon != 0.0) return run::ReadState::Point;
      run::addTo(counts_.zeroCoordinate, point.sourceLine);
      if (!holdsMeasures_) copyTakenSection(point.sectionLine);
      run::resetPoint(point);
    }
    return run::ReadState::End;
  }

 private:
  enum class Position { Header, Section, End };

  /// The next line of the section (or header) without its outer blanks; false at its end, where either the line that
  /// begins the next section is held, or there is no more.
  bool nextLine(std::string_view& line) {
    do {
      if (!lines_.next(line)) {
        position_ = Position::End;
        return false;
      }
      line = text::trimBlanks(line);
    } while (line.empty());
    if (!beginsSection(line)) return true;
    position_ = Position::Section;
    sectionLine_ = line;
    sectionLineNumber_ = lines_.lineNumber();
    return false;
  }

  /// A failure of the target comes to light with the next point, or at the end.
  void copy(std::string_view line) {
    if (otherLines_ != nullptr) otherLines_->writeLine(line);
  }

  void copyHeader() {
    for (std::string_view line; nextLine(line);) {
      if (line.front() == '$') run::addTo(counts_.comment, lines_.lineNumber());
      if (!isOwnHeaderLine(line)) copy(line);
    }
  }

  void copySection() {
    copy(sectionLine_);
    for (std::string_view line; nextLine(line);) copy(line);
  }

  void copyTakenSection(std::string_view sectionLine) {
    if (otherLines_ == nullptr) return;
    otherLines_->writeLine(sectionLine);
    otherLines_->write(sectionText_);
  }

  void keepText(std::string_view line) {
    if (otherLines_ == nullptr) return;
    sectionText_ += line;
    sectionText_ += text::LineWriter::kLineEnd;
  }

  /// False when the section is too long.
  bool takeSection(PointRecord& point) {
    point.sectionLine = sectionLine_;
    point.sourceLine = sectionLineNumber_;
    Section section{.point = point, .northing = {}, .easting = {}};
    std::size_t size = 0;
    holdsMeasures_ = false;
    sectionText_.clear();
    for (std::string_view line; nextLine(line);) {
      size += sizeof(std::string) + line.size();
      if (size > kMaxSectionSize) return refuseSize(point.sourceLine);
      keepText(line);
      if (const Tag* const tag = findTag(line)) {
        holdsMeasures_ = holdsMeasures_ || tag->content == Content::Measure;
        tag->take(section, line.substr(kSectionTag.size()));
      } else {
        keepFurtherField(point, line);
      }
    }
    point.InNorthLat = angles_ ? angle(point.latitude) : section.northing.value();
    point.InEastLon = angles_ ? angle(point.longitude) : section.easting.value();
    return true;
  }

  bool refuseSize(std::uint64_t line) {
    std::string text = lines_.fileName() + ": the section in line ";
    text::appendWhole(text, static_cast<std::int64_t>(line));
    message_ = run::systemMessage(text + " is longer than 1 MiB");
    return false;
  }

  /// Blanks between the degrees, minutes and seconds would otherwise leave the degrees alone.
  double angle(std::string_view value) { return text::leadingNumber(text::withoutBlanks(value, scratch_)); }

  text::LineReader& lines_;
  run::RecordCounts& counts_;
  run::Message& message_;
  text::LineWriter* otherLines_;
  const bool angles_;
  Position position_ = Position::Header;
  std::string sectionLine_;
  std::uint64_t sectionLineNumber_ = 0;
  /// Of the section taken last: whether a line of it holds a measure, and its lines where they may be copied.
  bool holdsMeasures_ = false;
  std::string sectionText_;
  std::string scratch_;
};

}  // namespace

std::unique_ptr<run::PointReader> makeSdmsReader(const run::SourceContext& context) {
  return std::make_unique<SdmsReader>(context);
}

}  // namespace tovak::formats
