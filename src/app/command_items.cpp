#include "app/command_items.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <system_error>
#include <utility>

#include "run/format_index.h"
#include "selection/job_file.h"
#include "text/native_path.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::app {
namespace {

namespace fs = std::filesystem;
using run::Adjustment;
using text::AngleForm;

constexpr std::int16_t kAccuracies = 6;

struct YearForm {
  std::string_view text;
  Adjustment adjustment;
};

constexpr std::array<YearForm, 12> kYearForms = {{
    {"8", Adjustment::Nad83_1986},
    {"86", Adjustment::Nad83_1986},
    {"1986", Adjustment::Nad83_1986},
    {"9", Adjustment::Nad83_1996},
    {"96", Adjustment::Nad83_1996},
    {"1996", Adjustment::Nad83_1996},
    {"0", Adjustment::Nad83_2007},
    {"07", Adjustment::Nad83_2007},
    {"2007", Adjustment::Nad83_2007},
    {"1", Adjustment::Nad83_2011},
    {"11", Adjustment::Nad83_2011},
    {"2011", Adjustment::Nad83_2011},
}};

struct LatLongChoice {
  AngleForm form;
  bool chosen;  ///< whether the window shows the form as chosen
};

/// By the number after "-A", less one.
constexpr std::array<LatLongChoice, 5> kLatLongChoices = {{{AngleForm::DegreesMinutesSeconds, true},
                                                           {AngleForm::DegreesMinutesSeconds, true},
                                                           {AngleForm::DegreesMinutesSeconds, false},
                                                           {AngleForm::DecimalDegrees, false},
                                                           {AngleForm::DegreesDecimalMinutes, false}}};

/// One item of the line: how long it is, and the value after the letters of an option (or a file name).
struct Item {
  std::string_view value;
  std::size_t length = 0;
};

/// The value that begins at `start`: from quote to quote, or up to the next blank.
Item valueAt(std::string_view line, std::size_t start) {
  const bool quoted = start < line.size() && line[start] == '"';
  const std::size_t from = quoted ? start + 1 : start;
  const std::size_t end = std::min(line.find(quoted ? '"' : ' ', from), line.size());
  return {.value = line.substr(from, end - from), .length = std::min(end + 1, line.size())};
}

/// The letter of an option in upper case; a blank where there is none.
char optionLetter(std::string_view line) {
  return line.size() > 1 && line.front() == '-' ? text::upperCase(line[1]) : ' ';
}

/// The item that a line begins with. Of "-R" the value is the file's name alone.
Item itemAt(std::string_view line) {
  return valueAt(line, optionLetter(line) == 'R' ? 2 : 0);
}

/// Whether an item holds the help switch. The folder names of an existing file do not count.
bool holdsHelpSwitch(std::string_view item) {
  std::error_code error;
  const fs::path path = text::pathOf(item);
  const bool isFile = fs::exists(path, error) && !fs::is_directory(path, error);
  const std::string searched = isFile ? path.filename().string() : std::string(item);
  return text::findIgnoringCase(searched, "-h") != std::string::npos;
}

class Parser {
 public:
  Parser(std::string_view line, const run::RunSettings& before) : rest_(line) { items_.settings = before; }

  CommandItems parse() {
    while (!rest_.empty()) {
      const std::size_t length = takeItem();
      rest_.remove_prefix(length);
      rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size()));
    }
    return std::move(items_);
  }

 private:
  std::size_t takeItem() {
    if (!items_.numberProblem.empty()) return takeBatchModeOnly();
    return rest_.front() == '-' ? takeOption() : takeFileName();
  }

  /// After a number that cannot be read, only the switches that decide where its message goes are read.
  std::size_t takeBatchModeOnly() {
    const Item item = itemAt(rest_);
    const char letter = optionLetter(rest_);
    if (letter == 'B' || letter == 'Q') takeBatchMode(letter == 'Q' ? 2 : 1);
    return item.length;
  }

  std::size_t takeFileName() {
    const Item item = itemAt(rest_);
    const std::string name(item.value);
    if (items_.source.fileName.empty() && items_.target.fileName.empty() && selection::isJobName(name)) {
      items_.jobs.push_back(name);
      findWorkingFolder(name);
    } else if (items_.source.fileName.empty()) {
      items_.source.fileName = name;
      findWorkingFolder(name);
    } else if (items_.target.fileName.empty()) {
      items_.target.fileName = name;
    }
    return item.length;
  }

  void findWorkingFolder(const std::string& name) {
    if (name.empty()) return;
    std::error_code error;
    const fs::path absolute = fs::absolute(text::pathOf(name), error);
    const fs::path folder = fs::is_directory(absolute, error) ? absolute : absolute.parent_path();
    if (fs::is_directory(folder, error)) items_.workingFolder = folder.lexically_normal();
  }

  std::size_t takeOption() {
    const Item item = itemAt(rest_);
    switch (optionLetter(rest_)) {
      case 'B':
        takeBatchMode(1);
        break;
      case 'Q':
        takeBatchMode(2);
        break;
      case 'S':
        takeSide(item.value, items_.source);
        break;
      case 'T':
        takeSide(item.value, items_.target);
        break;
      case 'A':
        takeLatLongForm(item.value);
        break;
      case 'F':
        takeAccuracy(item.value);
        break;
      case 'R':
        takeReportFile(item.value);
        break;
      case 'Y':
        takeYear();
        break;
      default:
        break;
    }
    return item.length;
  }

  void takeBatchMode(std::int16_t mode) {
    items_.settings.BatchMode = mode;
    items_.settings.printReport = false;
  }

  void takeSide(std::string_view item, CommandSide& side) {
    const std::string_view value = item.substr(std::min<std::size_t>(3, item.size()));
    switch (text::upperCase(item.size() > 2 ? item[2] : ' ')) {
      case 'P':
        takeNumber(item, value, side.projection);
        break;
      case 'F':
        takeNumber(item, value, side.format);
        markAgencyRun(side);
        break;
      case 'U':
        takeUnits(value, side);
        break;
      default:
        break;
    }
  }

  static void takeUnits(std::string_view value, CommandSide& side) {
    const char letter = value.empty() ? ' ' : text::upperCase(value.front());
    if (letter == 'E' || letter == 'M') side.metres = letter == 'M';
  }

  /// A target option also looks up the source's number, if already given, in the list of targets.
  void markAgencyRun(const CommandSide& side) {
    const bool ofSource = &side == &items_.source;
    const std::int16_t source = items_.source.format;
    items_.agencyRun = items_.agencyRun || (ofSource ? run::source::isAgency(source) : run::target::isAgency(source));
  }

  void takeLatLongForm(std::string_view item) {
    std::int16_t position = kNotGiven;
    takeNumber(item, item.substr(2), position);
    if (!items_.numberProblem.empty()) return;
    if (position < 0 || position >= static_cast<std::int16_t>(kLatLongChoices.size())) {
      items_.rangeProblems += "Improper Latitude/Longitude Form Was Specified.\n";
      return;
    }
    const LatLongChoice& choice = kLatLongChoices[static_cast<std::size_t>(position)];
    items_.settings.latLongForm = choice.form;
    items_.settings.latLongFormChosen = choice.chosen;
  }

  void takeAccuracy(std::string_view item) {
    std::int16_t position = kNotGiven;
    takeNumber(item, item.substr(2), position);
    if (!items_.numberProblem.empty()) return;
    if (position < 0 || position >= kAccuracies) {
      items_.rangeProblems += "Improper Data Accuracy Was Specified.\n";
      return;
    }
    items_.settings.accuracy = static_cast<text::Accuracy>(position);
  }

  void takeReportFile(std::string_view name) {
    items_.reportOfDay = text::trimBlanks(name).empty();
    if (items_.reportOfDay) return;
    items_.settings.reportFileName = name;
    items_.settings.reportEnabled = true;
    items_.reportFileNamed = true;
  }

  /// The year is compared with all that is left of the line, so the option counts only at the end of the line.
  void takeYear() {
    const std::string_view year = text::trimBlanks(rest_.substr(2));
    const auto* const found =
        std::find_if(kYearForms.begin(), kYearForms.end(), [year](const YearForm& form) { return form.text == year; });
    if (found != kYearForms.end()) items_.settings.adjustment = found->adjustment;
  }

  /// Stores the 0-based position; a number that cannot be read ends the parsing.
  void takeNumber(std::string_view item, std::string_view value, std::int16_t& position) {
    const text::LeadingNumber number = text::parseLeadingNumber(value);
    const std::optional<std::int16_t> stored = text::toInt16(number.value - 1.0);
    if (number.length == 0 || !stored) {
      items_.numberProblem = "Number Cannot Be Read: " + std::string(item);
      return;
    }
    position = *stored;
  }

  std::string_view rest_;
  CommandItems items_;
};

}  // namespace

std::optional<std::string> itemAskingForHelp(std::string_view line) {
  for (line = text::trimBlanks(line); !line.empty(); line = text::trimBlanks(line)) {
    const Item item = itemAt(line);
    if (holdsHelpSwitch(item.value)) return std::string(item.value);
    line.remove_prefix(item.length);
  }
  return std::nullopt;
}

CommandItems parseCommandItems(std::string_view line, const run::RunSettings& before) {
  return Parser(text::trimBlanks(line), before).parse();
}

}  // namespace tovak::app
