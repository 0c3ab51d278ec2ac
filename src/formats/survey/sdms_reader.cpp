#include "formats/survey/sdms_reader.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "run/projection_code.h"
#include "run/run_messages.h"
#include "text/angle.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::survey {
namespace {

constexpr std::string_view kSectionTag = "AC:";
constexpr std::array<std::string_view, 2> kCopiedSections = {"AC:EQ", "AC:PR"};
/// Header lines that every target writes itself.
constexpr std::array<std::string_view, 4> kOwnHeaderLines = {"$Tovak#", "HD:", "CM:Projection=", "CM:Units="};

/// The most that a section may hold, so that memory does not grow with a file that never begins another one.
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

/// A coordinate and its substitute while it is zero.
struct Coordinate {
  double main = 0.0;
  double substitute = 0.0;
  double value() const { return main != 0.0 ? main : substitute; }
};

/// A point being read.
struct Section {
  run::PointRecord& point;
  Coordinate northing;
  Coordinate easting;
  std::uint32_t tagsSeen = 0;  ///< by their places in the table
  bool gridDoubtful = false;   ///< a coordinate has text after its number
  bool elevationDoubtful = false;
};

template <std::string run::PointRecord::*Field>
void takeText(Section& section, std::string_view value) {
  section.point.*Field = value;
}

/// An empty value means the blanks of the default, which are lost at the end of a line.
template <std::string run::PointRecord::*Field>
void takeFilledText(Section& section, std::string_view value) {
  if (!value.empty()) section.point.*Field = value;
}

void takeComment(Section& section, std::string_view value) {
  run::addComment(section.point, value);
}

/// A zero never replaces a coordinate that came before it.
template <Coordinate Section::*Place, double Coordinate::*Rank>
void takeCoordinate(Section& section, std::string_view value) {
  const double number = text::leadingNumber(value, section.gridDoubtful);
  if (number != 0.0) section.*Place.*Rank = number;
}

void setElevation(Section& section, const text::LeadingNumber& number) {
  section.point.Elevation = number.value;
  section.point.elevationAccuracy = text::writtenAccuracy(number);
}

void takeElevation(Section& section, std::string_view value) {
  const text::LeadingNumber number = text::parseLeadingNumber(value, section.elevationDoubtful);
  if (number.value != 0.0 || section.point.Elevation == 0.0) setElevation(section, number);
}

void takeSubstituteElevation(Section& section, std::string_view value) {
  if (section.point.Elevation == 0.0) setElevation(section, text::parseLeadingNumber(value, section.elevationDoubtful));
}

enum class Content { Word, Measure };

struct Tag {
  std::string_view name;
  Content content;  ///< a measure is valid only in the units and the system of the source
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

/// Whether the section has had the tag already. A name or measure given twice probably belongs to another point whose
/// section line is missing.
bool repeats(Section& section, const Tag& tag) {
  if (tag.content == Content::Word && tag.name != "PN") return false;
  const std::uint32_t bit = 1U << static_cast<unsigned>(&tag - kTags.data());
  return (std::exchange(section.tagsSeen, section.tagsSeen | bit) & bit) != 0;
}

class SdmsReader final : public run::PointReader {
 public:
  explicit SdmsReader(const run::SourceContext& context)
      : lines_(context.lines),
        counts_(context.counts),
        doubts_(context.doubts),
        message_(context.message),
        wantsOtherLines_(context.wantsOtherLines),
        angles_(run::isLatLong(context.settings.SourceProjectionCode)) {}

  bool check() override {
    // A separate pass without side effects: the file is read again for its points.
    const bool wantsOtherLines = std::exchange(wantsOtherLines_, false);
    const run::RecordCounts counts = counts_;
    PointRecord probe;
    run::resetPoint(probe);
    const run::ReadState state = read(probe);
    wantsOtherLines_ = wantsOtherLines;
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
    while (position_ != Position::End) {
      if (position_ == Position::Section && isCopiedSection(sectionLine_)) {
        position_ = Position::CopiedSection;
        if (wantsOtherLines_) return other(point, sectionLine_);
      } else if (position_ != Position::Section) {
        if (std::string_view line; nextLine(line) && isToBeCopied(line)) return other(point, line);
      } else if (const std::optional<run::ReadState> state = readSection(point)) {
        return *state;
      }
    }
    return run::ReadState::End;
  }

 private:
  /// In the header, in a section that is copied, at the line that begins a section, or after the last line.
  enum class Position { Header, CopiedSection, Section, End };

  /// The next line of the section (or header) without its outer blanks; false at its end: then the line that begins the
  /// next section is held, or the file has ended.
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

  bool isToBeCopied(std::string_view line) {
    if (position_ == Position::CopiedSection) return wantsOtherLines_;
    if (line.front() == '$') run::addTo(counts_.comment, lines_.lineNumber());
    return wantsOtherLines_ && !isOwnHeaderLine(line);
  }

  run::ReadState other(PointRecord& point, std::string_view line) {
    sectionText_.clear();
    keepText(line);
    point.otherLines = sectionText_;
    return run::ReadState::OtherLines;
  }

  void keepText(std::string_view line) {
    if (!wantsOtherLines_) return;
    sectionText_ += line;
    sectionText_ += text::LineWriter::kLineEnd;
  }

  /// Nothing when the section is passed over.
  std::optional<run::ReadState> readSection(PointRecord& point) {
    if (!takeSection(point)) return run::ReadState::Stopped;
    // A section cut short by a fault is not a point.
    if (lines_.fault() != text::LineReader::Fault::None) return run::ReadState::End;
    if (!zeroCoordinate_) return run::ReadState::Point;
    run::addTo(counts_.zeroCoordinate, point.sourceLine);
    run::resetPoint(point);
    doubts_.clear();
    if (holdsMeasures_ || !wantsOtherLines_) return std::nullopt;
    point.otherLines = sectionText_;
    return run::ReadState::OtherLines;
  }

  /// False when the section is too long.
  bool takeSection(PointRecord& point) {
    point.sectionLine = sectionLine_;
    point.sourceLine = sectionLineNumber_;
    Section section{.point = point, .northing = {}, .easting = {}};
    std::size_t size = 0;
    holdsMeasures_ = false;
    sectionText_.clear();
    keepText(sectionLine_);
    for (std::string_view line; nextLine(line);) {
      size += sizeof(std::string) + line.size();
      if (size > kMaxSectionSize) return refuseSize(point.sourceLine);
      keepText(line);
      if (const Tag* const tag = findTag(line)) {
        holdsMeasures_ = holdsMeasures_ || tag->content == Content::Measure;
        if (repeats(section, *tag)) doubts_.raise(run::Doubt::RunTogether);
        tag->take(section, line.substr(kSectionTag.size()));
      } else {
        keepFurtherField(point, line);
      }
    }
    takeCoordinates(section);
    return true;
  }

  void takeCoordinates(const Section& section) {
    PointRecord& point = section.point;
    if (angles_) {
      const text::AngleReading latitude = angle(point.latitude, text::AngleAxis::Latitude);
      const text::AngleReading longitude = angle(point.longitude, text::AngleAxis::Longitude);
      run::takeAngles(point, latitude, longitude, doubts_);
    } else {
      point.InNorthLat = section.northing.value();
      point.InEastLon = section.easting.value();
    }
    if (section.elevationDoubtful || (section.gridDoubtful && !angles_)) {
      doubts_.raise(run::Doubt::TextBehindNumber);
    }
    zeroCoordinate_ = point.refusal.empty() && (point.InNorthLat == 0.0 || point.InEastLon == 0.0);
  }

  bool refuseSize(std::uint64_t line) {
    std::string text = lines_.fileName() + ": the section in line ";
    text::appendWhole(text, static_cast<std::int64_t>(line));
    message_ = run::systemMessage(text + " is longer than 1 MiB");
    return false;
  }

  text::AngleReading angle(std::string_view value, text::AngleAxis axis) {
    return text::readAngle(value, text::AngleForm::DegreesMinutesSeconds, axis, scratch_);
  }

  text::LineReader& lines_;
  run::RecordCounts& counts_;
  run::DoubtFlags& doubts_;
  run::Message& message_;
  bool wantsOtherLines_;
  const bool angles_;
  Position position_ = Position::Header;
  std::string sectionLine_;
  std::uint64_t sectionLineNumber_ = 0;
  /// About the section read last: whether a coordinate is missing, whether a line holds a measure, and its lines where
  /// they may be copied.
  bool zeroCoordinate_ = false;
  bool holdsMeasures_ = false;
  std::string sectionText_;
  std::string scratch_;
};

}  // namespace

std::unique_ptr<run::PointReader> makeSdmsReader(const run::SourceContext& context) {
  return std::make_unique<SdmsReader>(context);
}

}  // namespace tovak::formats::survey
