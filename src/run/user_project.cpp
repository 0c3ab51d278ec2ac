#include "run/user_project.h"

#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "run/data_folder.h"
#include "run/projection_box.h"
#include "run/projection_code.h"
#include "text/line_reader.h"
#include "text/line_writer.h"
#include "text/native_path.h"
#include "text/strings.h"

namespace tovak::run {
namespace {

constexpr std::size_t kLongestName = 80;
constexpr std::string_view kMetres = "metres";
constexpr std::string_view kFeet = "feet";

/// One key of the file: where its value goes. The function gives the reason why it cannot, or an empty text.
struct Key {
  std::string_view name;
  std::string (*take)(UserProject& project, std::string_view value);
  bool required = true;
};

bool isDatum(std::string_view text) {
  return text == "NAD27" || text == "NAD83";
}

std::string takeUnit(UserProject& project, std::string_view value) {
  project.metres = text::equalsIgnoringCase(value, kMetres);
  return project.metres || text::equalsIgnoringCase(value, kFeet) ? "" : R"(the unit is neither "metres" nor "feet")";
}

std::string takeDatum(UserProject& project, std::string_view value) {
  project.datum = value;
  return isDatum(value) ? "" : R"(the datum is neither "NAD27" nor "NAD83")";
}

constexpr std::array<Key, 4> kKeys = {{
    {"name",
     [](UserProject& project, std::string_view value) -> std::string {
       project.name = value;
       return {};
     }},
    {"definition",
     [](UserProject& project, std::string_view value) -> std::string {
       project.definition = value;
       return {};
     }},
    {"unit", takeUnit},
    {"datum", takeDatum, false},
}};

using Stored = text::Result<std::optional<UserProject>>;

class Reader {
 public:
  Stored read(const std::string& fileName) {
    if (!lines_.open(fileName)) return Stored::failure(lines_.error());
    for (std::string_view line; lines_.next(line);) {
      if (const std::string reason = takeLine(line); !reason.empty())
        return Stored::failure(text::faultAtLine(fileName, lines_.lineNumber(), reason));
    }
    if (lines_.fault() != text::LineReader::Fault::None) return Stored::failure(lines_.error());
    for (std::size_t i = 0; i < kKeys.size(); ++i) {
      if (kKeys[i].required && !seen_[i])
        return Stored::failure(fileName + ": the line \"" + std::string(kKeys[i].name) + " = ...\" is missing");
    }
    if (const std::string fault = faultOf(project_); !fault.empty()) return Stored::failure(fileName + ": " + fault);
    return std::optional(project_);
  }

 private:
  std::string takeLine(std::string_view line) {
    line = text::trimBlanks(line);
    if (line.empty() || line.front() == '#') return {};
    const std::size_t sign = line.find('=');
    if (sign == std::string_view::npos) return "a key, \"=\" and a value are expected";
    const std::string_view name = text::trimBlanks(line.substr(0, sign));
    for (std::size_t i = 0; i < kKeys.size(); ++i) {
      if (!text::equalsIgnoringCase(name, kKeys[i].name)) continue;
      if (seen_[i]) return "the " + std::string(kKeys[i].name) + " is given twice";
      seen_[i] = true;
      return kKeys[i].take(project_, text::trimBlanks(line.substr(sign + 1)));
    }
    return R"(the keys are "name", "definition", "unit" and "datum")";
  }

  text::LineReader lines_;
  std::array<bool, kKeys.size()> seen_{};
  UserProject project_;
};

bool exists(const std::string& fileName) {
  std::error_code error;
  return std::filesystem::symlink_status(text::pathOf(fileName), error).type() != std::filesystem::file_type::not_found;
}

}  // namespace

std::string userProjectFile() {
  const std::filesystem::path folder = dataFolder();
  return folder.empty() ? std::string() : (folder / "project.txt").string();
}

text::Result<std::optional<UserProject>> readUserProject(const std::string& fileName) {
  if (fileName.empty() || !exists(fileName)) return std::optional<UserProject>();
  return Reader().read(fileName);
}

std::string faultOf(const UserProject& project) {
  if (text::trimBlanks(project.name).empty()) return "the project has no name";
  if (project.name.size() > kLongestName) return "the name is longer than 80 characters";
  // The tilde ends the name where name and projection text travel in one text.
  if (project.name.find('~') != std::string::npos) return "the name holds a tilde";
  if (project.name.find("None Selected") != std::string::npos) return "\"None Selected\" stands for no project";
  if (text::trimBlanks(project.definition).empty()) return "the project has no definition";
  if (project.definition.size() > kLongestDefinition) return "the definition is longer than 8192 characters";
  if (text::hasControlCharacter(project.name) || text::hasControlCharacter(project.definition))
    return "name and definition hold no line breaks, tabs or other control characters";
  return {};
}

std::string definitionRequest(const UserProject& project) {
  return projectionText(kUserDefinedProject, project.metres) + '\n' + project.definition;
}

std::string projectRequest(const std::optional<UserProject>& project) {
  const UserProject given = project.value_or(UserProject());
  return definitionRequest(given) + '\n' + given.name + '\n' + given.datum;
}

std::string_view toldDatum(std::string_view answer) {
  const std::string_view line = answer.substr(0, answer.find('\n'));
  if (!line.starts_with(kToldDatum)) return {};
  const std::string_view datum = line.substr(kToldDatum.size());
  return isDatum(datum) ? datum : std::string_view();
}

bool toldFeet(std::string_view answer) {
  text::takeField(answer, '\n');
  return text::takeField(answer, '\n') == kToldFeet;
}

bool writeUserProject(const std::string& fileName, const UserProject& project, std::string& error) {
  if (fileName.empty()) {
    error = "There is no data folder to keep the project in.";
    return false;
  }
  text::LineWriter lines;
  const bool written = lines.open(fileName) && lines.writeLine("# The user-defined project of Tovak.") &&
                       lines.writeLine("name = " + project.name) &&
                       lines.writeLine("definition = " + project.definition) &&
                       lines.writeLine("unit = " + std::string(project.metres ? kMetres : kFeet)) &&
                       (project.datum.empty() || lines.writeLine("datum = " + project.datum)) && lines.commit();
  if (!written) error = lines.error();
  return written;
}

}  // namespace tovak::run
