#include "selection/job_keys.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "formats/database/map_sheets.h"
#include "formats/delimited/field_codes.h"
#include "run/projection_code.h"
#include "selection/job_values.h"
#include "text/characters.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::selection {
namespace {

using formats::delimited::kFieldKinds;

/// A word of a job file and what it stands for.
template <typename Value>
struct Word {
  std::string_view word;
  Value value;
};

constexpr auto kUnits = std::to_array<Word<bool>>({{"feet", false}, {"metres", true}});
constexpr auto kYesNo = std::to_array<Word<bool>>({{"no", false}, {"yes", true}});
constexpr auto kOnOff = std::to_array<Word<bool>>({{"off", false}, {"on", true}});
constexpr auto kReportWays = std::to_array<Word<bool>>({{"append", true}, {"overwrite", false}});
constexpr auto kDatums = std::to_array<Word<run::VerticalDatum>>(
    {{"NAVD88", run::VerticalDatum::Navd88}, {"NGVD29", run::VerticalDatum::Ngvd29}});
constexpr auto kForms = std::to_array<Word<text::AngleForm>>({
    {"degrees minutes seconds", text::AngleForm::DegreesMinutesSeconds},
    {"decimal degrees", text::AngleForm::DecimalDegrees},
    {"degrees decimal minutes", text::AngleForm::DegreesDecimalMinutes},
});
constexpr auto kAdjustments = std::to_array<Word<run::Adjustment>>({
    {"none", run::Adjustment::None},
    {"1986", run::Adjustment::Nad83_1986},
    {"1996", run::Adjustment::Nad83_1996},
    {"2007", run::Adjustment::Nad83_2007},
    {"2011", run::Adjustment::Nad83_2011},
});
constexpr auto kAccuracies = std::to_array<Word<text::Accuracy>>({
    {".001", text::Accuracy::Thousandth},
    {".01", text::Accuracy::Hundredth},
    {".1", text::Accuracy::Tenth},
    {"1", text::Accuracy::Unit},
    {"10", text::Accuracy::Ten},
    {"100", text::Accuracy::Hundred},
});
/// How a delimited target has its latitudes and longitudes.
constexpr auto kWrittenAngles =
    std::to_array<Word<std::uint8_t>>({{"DDMMSS.ss", 0}, {"DD.MMSSss", 1}, {"DD MM SS.ss", 2}, {"DD.ddddddd", 3}});
constexpr auto kWaypointNames =
    std::to_array<Word<std::string_view>>({{"station", "ST"}, {"description", "PD"}, {"number", "PN"}});
constexpr auto kProjectDatums =
    std::to_array<Word<std::string_view>>({{"unknown", ""}, {"NAD27", "NAD27"}, {"NAD83", "NAD83"}});
constexpr auto kDataSets = std::to_array<Word<std::int16_t>>({
    {"none", 0},
    {"NAD83(2011)", 1},
    {"NAD83(2007)", 3},
    {"NAD83(1996)", 5},
    {"NAD83(1986)", 7},
    {"reference", 11},
    {"NAD27", 9},
});
constexpr auto kHeights = std::to_array<Word<std::int16_t>>({{"none", 0}, {"NAVD88", 13}, {"NGVD29", 14}});
constexpr auto kZones = std::to_array<Word<std::string_view>>({
    {"none", ""},
    {"north", " - North"},
    {"central", " - Central"},
    {"south", " - South"},
    {"north shore", " - Lake (North Shore)"},
});

/// Something other than these values cannot be written, and is read back by nobody.
template <const auto& kWords, typename Value>
std::string wordOf(const Value& value) {
  const auto found = std::ranges::find(kWords, value, [](const auto& entry) { return entry.value; });
  return found == kWords.end() ? std::string("?") : std::string(found->word);
}

template <const auto& kWords, typename Value>
std::string takeWord(Value& value, std::string_view text) {
  const auto found =
      std::ranges::find_if(kWords, [&](const auto& entry) { return text::equalsIgnoringCase(entry.word, text); });
  if (found != kWords.end()) {
    value = found->value;
    return {};
  }
  std::string reason = "expected is one of: ";
  for (const auto& entry : kWords) reason.append(&entry == kWords.data() ? "" : ", ").append(entry.word);
  return reason;
}

// Each of these makes a key of a setting; `Access` is a captureless function from a job to the setting.

template <const auto& kWords, typename Access>
constexpr JobKey wordKey(std::string_view name, Needed needed, Access) {
  return {name, needed, [](const Job& job, const JobContext&) { return wordOf<kWords>(Access{}(job)); },
          [](Job& job, const JobContext&, std::string_view value) { return takeWord<kWords>(Access{}(job), value); }};
}

template <typename Access>
constexpr JobKey textKey(std::string_view name, Needed needed, Access) {
  return {name, needed, [](const Job& job, const JobContext&) { return quotedWhereNeeded(Access{}(job)); },
          [](Job& job, const JobContext&, std::string_view value) {
            text::Result<std::string> text = textOfValue(value);
            if (text) Access{}(job) = std::move(*text);
            return text.error;
          }};
}

template <typename Access>
constexpr JobKey fileKey(std::string_view name, Access) {
  return {name, Needed::Never,
          [](const Job& job, const JobContext& context) {
            return quotedWhereNeeded(nameFromFolder(Access{}(job), context.folder));
          },
          [](Job& job, const JobContext& context, std::string_view value) {
            const text::Result<std::string> text = textOfValue(value);
            if (text) Access{}(job) = nameInFolder(*text, context.folder);
            return text.error;
          }};
}

template <std::int32_t kLeast, std::int32_t kMost, typename Access>
constexpr JobKey wholeKey(std::string_view name, Needed needed, Access) {
  return {name, needed,
          [](const Job& job, const JobContext&) {
            std::string text;
            text::appendWhole(text, Access{}(job));
            return text;
          },
          [](Job& job, const JobContext&, std::string_view value) {
            const text::Result<std::int32_t> number = wholeNumber(value, kLeast, kMost);
            if (number) Access{}(job) = *number;
            return number.error;
          }};
}

template <auto kList, typename Access>
constexpr JobKey formatKey(std::string_view name, Access) {
  return {name, Needed::Always,
          [](const Job& job, const JobContext& context) {
            return std::string((context.formats.*kList)[static_cast<std::size_t>(Access{}(job))].key);
          },
          [](Job& job, const JobContext& context, std::string_view value) -> std::string {
            const auto& list = context.formats.*kList;
            const auto card = std::ranges::find_if(
                list, [&](const auto& format) { return text::equalsIgnoringCase(format.key, value); });
            if (card == list.end()) return "no format is called that";
            Access{}(job) = static_cast<std::int16_t>(card - list.begin());
            return {};
          }};
}

/// The code of a system, and its name, which tells whether the code still means the same.
template <auto kName, typename Access>
constexpr JobKey systemKey(std::string_view name, Access) {
  return {name, Needed::Always,
          [](const Job& job, const JobContext&) {
            std::string text;
            text::appendWhole(text, Access{}(job));
            return (job.*kName).empty() ? text : text + ' ' + job.*kName;
          },
          [](Job& job, const JobContext&, std::string_view value) {
            const std::string_view digits = text::takeField(value, ' ');
            const text::Result<std::int32_t> code = wholeNumber(digits, 0, run::kLastProjectionCode);
            if (code) Access{}(job) = static_cast<std::int16_t>(*code);
            job.*kName = text::trimBlanks(value);
            return code.error;
          }};
}

std::string fieldName(std::int16_t code) {
  if (code >= 0 && code < static_cast<std::int16_t>(kFieldKinds.size()))
    return std::string(kFieldKinds[static_cast<std::size_t>(code)].editorName);
  std::string text;
  text::appendWhole(text, code);
  return text;
}

/// Appends the code of a field by its name, or a code without a name.
std::string takeField(std::string& codes, std::string_view field) {
  const auto named = std::ranges::find_if(
      kFieldKinds, [&](const auto& kind) { return text::equalsIgnoringCase(kind.editorName, field); });
  std::int32_t code = static_cast<std::int32_t>(named - kFieldKinds.begin());
  if (named == kFieldKinds.end()) {
    const text::Result<std::int32_t> number = wholeNumber(field, 0, 255);
    if (!number) return "there is no field \"" + std::string(field) + '"';
    code = *number;
  }
  text::appendWhole(codes += ' ', code);
  codes += '~';
  return {};
}

template <typename Access>
constexpr JobKey fieldsKey(std::string_view name, Needed needed, Access) {
  return {name, needed,
          [](const Job& job, const JobContext&) {
            std::string list;
            for (const std::int16_t code : formats::delimited::parseFieldCodes(Access{}(job)))
              list.append(list.empty() ? "" : ", ").append(fieldName(code));
            return list;
          },
          [](Job& job, const JobContext&, std::string_view value) {
            std::string codes;
            std::string fault;
            while (!value.empty() && fault.empty())
              fault = takeField(codes, text::trimBlanks(text::takeField(value, ',')));
            Access{}(job) = codes;
            return fault;
          }};
}

template <typename Access>
constexpr JobKey delimiterKey(std::string_view name, Needed needed, Access) {
  return {name, needed,
          [](const Job& job, const JobContext&) { return quotedWhereNeeded(std::string(1, Access{}(job))); },
          [](Job& job, const JobContext&, std::string_view value) {
            const text::Result<std::string> text = textOfValue(value);
            if (text && text->size() != 1) return std::string("the delimiter is one character");
            if (text) Access{}(job) = text->front();
            return text.error;
          }};
}

// The project is there when anything is said about it.

bool hasProject(const Job& job) {
  return job.settings.project.has_value();
}
run::UserProject& projectOf(Job& job) {
  return job.settings.project ? *job.settings.project : job.settings.project.emplace();
}
const run::UserProject& projectOf(const Job& job) {
  return *job.settings.project;
}

constexpr JobKey ofProject(JobKey key) {
  key.present = hasProject;
  return key;
}

/// One of the map sheets. They are numbered so that each has a line.
template <std::size_t kNumber>
constexpr JobKey sheetKey(std::string_view name) {
  JobKey key = fileKey(
      name, [](auto& job) -> auto& {
        auto& sheets = job.settings.options.geodeticCsv.sheets;
        if constexpr (requires { sheets.emplace_back(); }) sheets.resize(std::max(sheets.size(), kNumber));
        return sheets[kNumber - 1];
      });
  key.present = [](const Job& job) { return job.settings.options.geodeticCsv.sheets.size() >= kNumber; };
  return key;
}
static_assert(formats::database::kMostMapSheets == 7, "each has its key");

template <typename Access>
constexpr JobKey colorKey(std::string_view name, Access) {
  return {name, Needed::Never, [](const Job& job, const JobContext&) { return std::string(Access{}(job)); },
          [](Job& job, const JobContext&, std::string_view value) -> std::string {
            const bool hex = !value.empty() && value.size() <= 6 &&
                             value.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
            if (!hex) return "a color is one to six hexadecimal digits";
            Access{}(job) = value;
            return {};
          }};
}

constexpr std::int32_t kLargest = 999'999'999;
constexpr std::int32_t kAnyLeast = INT32_MIN;
constexpr std::int32_t kAnyMost = INT32_MAX;

// NOLINTBEGIN(readability-identifier-length): `j` is the job
constexpr auto kKeys = std::to_array<JobKey>({
    formatKey<&run::FormatTables::sources>(
        "source format", [](auto& j) -> auto& { return j.settings.sourceFormat; }),
    fileKey(
        "source file", [](auto& j) -> auto& { return j.settings.source.fileName; }),
    systemKey<&Job::sourceSystem>(
        "source projection", [](auto& j) -> auto& { return j.settings.SourceProjectionCode; }),
    wordKey<kUnits>(
        "source unit", Needed::Always, [](auto& j) -> auto& { return j.settings.source.metres; }),
    textKey(
        "source layout", Needed::Never, [](auto& j) -> auto& { return j.settings.sourceDelimited.name; }),
    delimiterKey(
        "source delimiter", Needed::ForSourceLayout,
        [](auto& j) -> auto& { return j.settings.sourceDelimited.delimiter; }),
    fieldsKey(
        "source fields", Needed::ForSourceLayout,
        [](auto& j) -> auto& { return j.settings.sourceDelimited.fieldCodes; }),
    wordKey<kWrittenAngles>(
        "source written angles", Needed::Never,
        [](auto& j) -> auto& { return j.settings.sourceDelimited.latLongFormat; }),
    wordKey<kYesNo>(
        "source header", Needed::Never, [](auto& j) -> auto& { return j.settings.sourceDelimited.includeHeader; }),
    textKey(
        "source header line", Needed::Never, [](auto& j) -> auto& { return j.settings.sourceDelimited.headerLine; }),
    formatKey<&run::FormatTables::targets>(
        "target format", [](auto& j) -> auto& { return j.settings.targetFormat; }),
    fileKey(
        "target file", [](auto& j) -> auto& { return j.settings.target.fileName; }),
    systemKey<&Job::targetSystem>(
        "target projection", [](auto& j) -> auto& { return j.settings.TargetProjectionCode; }),
    wordKey<kUnits>(
        "target unit", Needed::Always, [](auto& j) -> auto& { return j.settings.target.metres; }),
    textKey(
        "target layout", Needed::Never, [](auto& j) -> auto& { return j.settings.targetDelimited.name; }),
    delimiterKey(
        "target delimiter", Needed::ForTargetLayout,
        [](auto& j) -> auto& { return j.settings.targetDelimited.delimiter; }),
    fieldsKey(
        "target fields", Needed::ForTargetLayout,
        [](auto& j) -> auto& { return j.settings.targetDelimited.fieldCodes; }),
    wordKey<kWrittenAngles>(
        "target written angles", Needed::ForTargetLayout,
        [](auto& j) -> auto& { return j.settings.targetDelimited.latLongFormat; }),
    wordKey<kYesNo>(
        "target header", Needed::ForTargetLayout,
        [](auto& j) -> auto& { return j.settings.targetDelimited.includeHeader; }),
    textKey(
        "target header line", Needed::ForTargetLayout,
        [](auto& j) -> auto& { return j.settings.targetDelimited.headerLine; }),
    wordKey<kForms>(
        "angles", Needed::Always, [](auto& j) -> auto& { return j.settings.latLongForm; }),
    wordKey<kYesNo>(
        "angles chosen", Needed::Never, [](auto& j) -> auto& { return j.settings.latLongFormChosen; }),
    wordKey<kAdjustments>(
        "adjustment", Needed::Always, [](auto& j) -> auto& { return j.settings.adjustment; }),
    wordKey<kDatums>(
        "vertical datum", Needed::Always, [](auto& j) -> auto& { return j.settings.verticalDatum; }),
    wordKey<kAccuracies>(
        "accuracy", Needed::Always, [](auto& j) -> auto& { return j.settings.accuracy; }),
    wholeKey<kAnyLeast, kAnyMost>(
        "next number", Needed::Always, [](auto& j) -> auto& { return j.settings.NextPointNumber; }),
    wholeKey<kAnyLeast, kAnyMost>(
        "number increment", Needed::Always, [](auto& j) -> auto& { return j.settings.PointNumberIncrement; }),
    wordKey<kYesNo>(
        "blank numbers", Needed::Always, [](auto& j) -> auto& { return j.settings.allowBlankPointNumbers; }),
    ofProject(textKey(
        "project name", Needed::ForProject, [](auto& j) -> auto& { return projectOf(j).name; })),
    ofProject(textKey(
        "project definition", Needed::ForProject, [](auto& j) -> auto& { return projectOf(j).definition; })),
    ofProject(wordKey<kUnits>(
        "project unit", Needed::ForProject, [](auto& j) -> auto& { return projectOf(j).metres; })),
    ofProject(wordKey<kProjectDatums>(
        "project datum", Needed::ForProject, [](auto& j) -> auto& { return projectOf(j).datum; })),
    wordKey<kWaypointNames>(
        "waypoint name", Needed::Never, [](auto& j) -> auto& { return j.settings.options.waypoints.name; }),
    textKey(
        "delorme symbol", Needed::Never, [](auto& j) -> auto& { return j.settings.options.delorme.symbol; }),
    colorKey(
        "maptech color", [](auto& j) -> auto& { return j.settings.options.maptech.color; }),
    wholeKey<0, kLargest>(
        "maptech symbol", Needed::Never, [](auto& j) -> auto& { return j.settings.options.maptech.symbol; }),
    sheetKey<1>("database sheet 1"),
    sheetKey<2>("database sheet 2"),
    sheetKey<3>("database sheet 3"),
    sheetKey<4>("database sheet 4"),
    sheetKey<5>("database sheet 5"),
    sheetKey<6>("database sheet 6"),
    sheetKey<7>("database sheet 7"),
    wordKey<kDataSets>(
        "database data set", Needed::Never, [](auto& j) -> auto& { return j.settings.options.geodeticCsv.horizontal; }),
    wordKey<kHeights>(
        "database heights", Needed::Never, [](auto& j) -> auto& { return j.settings.options.geodeticCsv.vertical; }),
    textKey(
        "database county", Needed::Never, [](auto& j) -> auto& { return j.settings.options.geodeticCsv.countyName; }),
    wordKey<kZones>(
        "database zone", Needed::Never, [](auto& j) -> auto& { return j.settings.options.geodeticCsv.zoneSuffix; }),
    wordKey<kOnOff>(
        "report", Needed::Never, [](auto& j) -> auto& { return j.settings.reportEnabled; }),
    fileKey(
        "report file", [](auto& j) -> auto& { return j.settings.reportFileName; }),
    wordKey<kReportWays>(
        "report way", Needed::Never, [](auto& j) -> auto& { return j.settings.appendReport; }),
    textKey(
        "report description", Needed::Never, [](auto& j) -> auto& { return j.settings.reportDescription; }),
    wordKey<kYesNo>(
        "report print", Needed::Never, [](auto& j) -> auto& { return j.settings.printReport; }),
});
// NOLINTEND(readability-identifier-length)

}  // namespace

std::span<const JobKey> jobKeys() {
  return kKeys;
}

}  // namespace tovak::selection
