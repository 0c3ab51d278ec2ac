#include "selection/job_file.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <vector>

#include "run/projection_box.h"
#include "run/projection_code.h"
#include "selection/job_keys.h"
#include "selection/job_values.h"
#include "text/characters.h"
#include "text/line_reader.h"
#include "text/native_path.h"
#include "text/strings.h"
#include "text/target_file.h"

namespace tovak::selection {
namespace {

constexpr std::string_view kKind = "Tovak job ";
constexpr std::int32_t kVersion = 1;
constexpr std::int32_t kHighestVersion = 999'999;

/// In a job's text, behind the line that names kind and version.
constexpr std::string_view kRemark = "# Run it with: tovak NAME.tovak -B\n";

JobContext contextOf(const std::string& fileName, const run::FormatTables& formats) {
  std::error_code unknown;
  return {.formats = formats,
          .folder = std::filesystem::absolute(text::pathOf(fileName), unknown).parent_path().generic_string()};
}

bool usesProject(const run::RunSettings& settings) {
  return settings.SourceProjectionCode == run::kUserDefinedProject ||
         settings.TargetProjectionCode == run::kUserDefinedProject;
}

/// Takes the lines of a job one after the other.
class JobLines {
 public:
  explicit JobLines(const JobContext& context) : context_(context), seen_(jobKeys().size()) {}

  /// Gives the reason why the line cannot be taken, or an empty text.
  std::string take(std::string_view line) {
    if (!text::isUtf8(line)) return "the line is not UTF-8";
    if (text::hasControlCharacter(line)) return "the line holds a tab or another control character";
    line = text::trimBlanks(line);
    if (!kindSeen_) return takeKind(line);
    if (line.empty() || line.front() == '#') return {};
    return takeKey(line);
  }

  /// What is still wrong when all lines are taken; empty when the job is complete.
  std::string finish() {
    if (!kindSeen_) return takeKind({});
    const std::span<const JobKey> keys = jobKeys();
    for (std::size_t i = 0; i < keys.size(); ++i) {
      if (!seen_[i] && isNeeded(keys[i].needed))
        return "the line \"" + std::string(keys[i].name) + " = ...\" is missing";
    }
    return completed();
  }

  const Job& job() const { return job_; }

 private:
  std::string takeKind(std::string_view line) {
    kindSeen_ = true;
    if (!line.starts_with(kKind)) return "this is not a job: its first line is not \"Tovak job 1\"";
    const text::Result<std::int32_t> version = wholeNumber(line.substr(kKind.size()), 1, kHighestVersion);
    if (!version) return "the version of the job: " + version.error;
    return *version > kVersion ? "the job is of a newer version of Tovak" : "";
  }

  std::string takeKey(std::string_view line) {
    const std::size_t sign = line.find('=');
    if (sign == std::string_view::npos) return "a key, \"=\" and a value are expected";
    const std::string_view name = text::trimBlanks(line.substr(0, sign));
    const std::span<const JobKey> keys = jobKeys();
    const auto key =
        std::ranges::find_if(keys, [&](const JobKey& k) { return text::equalsIgnoringCase(k.name, name); });
    if (key == keys.end()) return '"' + std::string(name) + "\" is no key of a job";
    const auto position = static_cast<std::size_t>(key - keys.begin());
    if (seen_[position]) return '"' + std::string(key->name) + "\" is given twice";
    seen_[position] = true;
    const std::string fault = key->read(job_, context_, text::trimBlanks(line.substr(sign + 1)));
    return fault.empty() ? fault : std::string(key->name) + ": " + fault;
  }

  bool isNeeded(Needed needed) const {
    const run::RunSettings& settings = job_.settings;
    switch (needed) {
      case Needed::Never:
        return false;
      case Needed::Always:
        return true;
      case Needed::ForSourceLayout:
        return context_.formats.sources[static_cast<std::size_t>(settings.sourceFormat)].choosesLayout;
      case Needed::ForTargetLayout:
        return context_.formats.targets[static_cast<std::size_t>(settings.targetFormat)].choosesLayout;
      case Needed::ForProject:
        return settings.project || usesProject(settings);
    }
    return true;
  }

  /// Checks what concerns several lines, and sets what follows from them.
  std::string completed() {
    run::RunSettings& settings = job_.settings;
    if (settings.project) {
      if (std::string fault = faultOf(*settings.project); !fault.empty()) return "the project: " + fault;
    }
    const std::vector<std::string>& sheets = settings.options.geodeticCsv.sheets;
    if (std::ranges::count(sheets, std::string()) > 0) return "a map sheet of the database is left out";
    for (const auto& [code, side] : {std::pair{settings.SourceProjectionCode, &settings.source},
                                     std::pair{settings.TargetProjectionCode, &settings.target}}) {
      if (code == run::kUserDefinedProject && side->metres != settings.project->metres)
        return "the unit of the project is not that of its side";
      side->projectionText = run::projectionText(code, side->metres);
    }
    return {};
  }

  const JobContext& context_;
  std::vector<bool> seen_;
  bool kindSeen_ = false;
  Job job_;
};

std::string composed(const Job& job, const JobContext& context) {
  std::string text(kKind);
  text.append("1\n").append(kRemark);
  for (const JobKey& key : jobKeys()) {
    if (key.present != nullptr && !key.present(job)) continue;
    const std::string value = key.write(job, context);
    text.append(key.name).append(value.empty() ? " =" : " = ").append(value) += '\n';
  }
  return text;
}

/// Reads a text as a file would be read. The error is the reason alone.
text::Result<Job> readText(std::string_view text, const JobContext& context) {
  JobLines lines(context);
  while (!text.empty()) {
    if (const std::string fault = lines.take(text::takeField(text, '\n')); !fault.empty())
      return text::Result<Job>::failure(fault);
  }
  if (const std::string fault = lines.finish(); !fault.empty()) return text::Result<Job>::failure(fault);
  return lines.job();
}

}  // namespace

bool isJobName(std::string_view fileName) {
  return text::endsWithIgnoringCase(fileName, kJobEnding);
}

text::Result<Job> readJob(const std::string& fileName, const run::FormatTables& formats) {
  using Read = text::Result<Job>;
  const JobContext context = contextOf(fileName, formats);
  text::LineReader reader;
  JobLines lines(context);
  if (!reader.open(fileName)) return Read::failure(reader.error());
  for (std::string_view line; reader.next(line);) {
    if (const std::string fault = lines.take(line); !fault.empty())
      return Read::failure(text::faultAtLine(fileName, reader.lineNumber(), fault));
  }
  if (reader.fault() != text::LineReader::Fault::None) return Read::failure(reader.error());
  if (const std::string fault = lines.finish(); !fault.empty()) return Read::failure(fileName + ": " + fault);
  return lines.job();
}

text::Result<std::string> jobText(const Job& job, const std::string& fileName, const run::FormatTables& formats) {
  using Text = text::Result<std::string>;
  const JobContext context = contextOf(fileName, formats);
  const std::string text = composed(job, context);
  // What could not be read again is better noticed now.
  const text::Result<Job> again = readText(text, context);
  if (!again) return Text::failure("These selections cannot be kept in a job: " + again.error + '.');
  if (composed(*again, context) != text) return Text::failure("These selections would not come back out of a job.");
  return text;
}

bool writeJob(const std::string& fileName, const Job& job, const run::FormatTables& formats, std::string& error) {
  const text::Result<std::string> text = jobText(job, fileName, formats);
  text::TargetFile file;
  if (text && file.open(fileName) && file.write(*text) && file.commit()) return true;
  error = text ? file.error() : text.error;
  return false;
}

}  // namespace tovak::selection
