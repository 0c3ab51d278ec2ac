#include "run/conversion_run.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "run/account_lines.h"
#include "run/combination_rules.h"
#include "run/corridor.h"
#include "run/projection_code.h"
#include "run/run_messages.h"
#include "run/run_outputs.h"
#include "run/vector_registers.h"
#include "text/file_identity.h"
#include "text/native_path.h"
#include "text/strings.h"

namespace tovak::run {
namespace {

/// A device, a pipe or an open descriptor has the name that the system gives it.
bool lacksEnding(const std::string& name, const TargetFormat& format) {
  if (text::endsWithIgnoringCase(name, format.fileNameEnding)) return false;
  if (!format.otherEnding.empty() && text::endsWithIgnoringCase(name, format.otherEnding)) return false;
  std::error_code unknown;
  return !text::namedDescriptor(name) &&
         !std::filesystem::is_other(std::filesystem::status(text::pathOf(name), unknown));
}

Message endingQuestion(const TargetFormat& format) {
  return format.fileNameQuestion == nullptr ? messages::addEnding(format.fileNameEnding) : format.fileNameQuestion();
}

class ConversionRun {
 public:
  ConversionRun(RunSettings& settings, ConversionEngine& engine, const FormatTables& formats, const Audience& audience)
      : settings_(settings),
        engine_(engine),
        audience_(audience),
        person_(audience.person),
        corridor_(settings, engine, formats, result_.counts),
        source_(corridor_.source()),
        target_(corridor_.target()),
        outputs_(settings, formats, corridor_.doubts(), audience.screen) {}

  RunResult execute();

 private:
  // Each step returns false when it has stopped the run.
  bool checkFileNames();
  bool exportFile();
  bool mayReplaceTarget();
  bool prepare();
  bool confirmWarnings();
  bool completeTargetName();
  bool openOutputs();
  bool convertPoints();
  bool finish();

  void settleResult();
  Message withAccount(Message message);
  bool convertPoint(PointRecord& point);
  bool goesOn(std::uint64_t bytesRead);
  void watchSource();
  bool skip(const PointRecord& point, const Refusal& refusal);
  bool endOfSource();
  bool stopKeepingPoints(const Message& message);
  bool stopForOutputs() { return stop(systemMessage(outputs_.error())); }
  std::string targetStands() const {
    return messages::targetStands(outputs_.targetState(), result_.counts, settings_.target.fileName);
  }

  bool interactive() const { return settings_.BatchMode == 0; }
  void report(const Message& message);
  bool stop(const Message& message);
  bool allows(const std::optional<Message>& problem) { return !problem || stop(*problem); }

  RunSettings& settings_;
  ConversionEngine& engine_;
  const Audience audience_;
  Person& person_;

  RunResult result_;
  Corridor corridor_;
  const SourceFormat& source_;
  const TargetFormat& target_;
  RunOutputs outputs_;
  std::uint64_t sourceSize_ = 0;
  bool cancelled_ = false;
};

/// 0 where it is not known.
std::uint64_t sizeOf(const std::string& fileName) {
  const std::optional<text::FileVersion> file = text::versionOf(fileName);
  return file ? static_cast<std::uint64_t>(file->size) : 0;
}

std::uint64_t sourceSize(const RunSettings& settings, const SourceFormat& source) {
  const std::vector<std::string>& sheets = settings.options.geodeticCsv.sheets;
  if (!source.fromDatabase || sheets.empty()) return sizeOf(settings.source.fileName);
  std::uint64_t size = 0;
  for (const std::string& sheet : sheets) size += sizeOf(sheet);
  return size;
}

RunResult ConversionRun::execute() {
  // The formats chosen in the editor are restored after a run that used built-in ones instead.
  const DelimitedFormat chosenSource = settings_.sourceDelimited;
  const DelimitedFormat chosenTarget = settings_.targetDelimited;
  const std::int32_t nextNumber = settings_.NextPointNumber;
  result_.outcome = RunOutcome::Finished;
  if (audience_.keptLines != 0) keepLines(result_.counts, audience_.keptLines);
  engine_.wantResultTexts(outputs_.showsPoints() || target_.wantsSourceInfo);
  const bool agencyRun = source_.kind == SourceKind::AgencyRun;
  const bool finished =
      checkFileNames() && (agencyRun ? mayReplaceTarget() && exportFile() : prepare() && convertPoints() && finish());
  if (!finished) result_.outcome = cancelled_ ? RunOutcome::Cancelled : RunOutcome::Stopped;
  if (cancelled_) settings_.NextPointNumber = nextNumber;
  settleResult();
  settings_.sourceDelimited = chosenSource;
  settings_.targetDelimited = chosenTarget;
  return std::move(result_);
}

void ConversionRun::settleResult() {
  corridor_.settleDoubts();
  if (source_.kind != SourceKind::AgencyRun) result_.target = outputs_.targetState();
  result_.targetName = settings_.target.fileName;
  if (outputs_.reportWritten()) {
    result_.reportName = settings_.reportFileName;
    result_.reportStart = outputs_.reportStart();
  }
}

/// False when the person has stopped the run.
bool ConversionRun::goesOn(std::uint64_t bytesRead) {
  cancelled_ =
      !audience_.progress->progress({.records = recordsRead(result_.counts), .bytes = bytesRead, .size = sourceSize_});
  clearUpperVectorHalves();
  return !cancelled_;
}

void ConversionRun::watchSource() {
  if (audience_.progress == nullptr || source_.kind == SourceKind::Keyboard) return;
  sourceSize_ = sourceSize(settings_, source_);
  corridor_.lines().watch([this](std::uint64_t bytesRead) { return goesOn(bytesRead); });
}

bool ConversionRun::prepare() {
  if (!allows(corridor_.checkChoices())) return false;
  corridor_.prepareFormats();
  if (!allows(corridor_.checkProjections()) || !confirmWarnings()) return false;
  const std::optional<Message> projectProblem = corridor_.takeProjectionTexts();
  if (projectProblem && projectProblem->text.empty()) return false;
  if (!allows(projectProblem) || !completeTargetName()) return false;
  watchSource();
  return allows(corridor_.openSource(audience_.typedPoints)) && openOutputs();
}

void ConversionRun::report(const Message& message) {
  result_.MessageText = message.text;
  if (settings_.BatchMode == 1 && person_.leaveBatchMode()) settings_.BatchMode = 0;
  if (interactive()) person_.show(message);
}

/// Stops the run; a message without a detail is given one that says what happens to a target already begun.
bool ConversionRun::stop(const Message& message) {
  if (cancelled_) return false;
  Message complete = message;
  if (complete.detail.empty()) complete.detail = targetStands();
  report(recordsRead(result_.counts) == 0 ? complete : withAccount(std::move(complete)));
  return false;
}

bool ConversionRun::checkFileNames() {
  if (source_.kind != SourceKind::Keyboard && settings_.source.fileName.empty())
    return stop(messages::sourceNameMissing());
  if (target_.kind != TargetKind::Screen && settings_.target.fileName.empty())
    return stop(messages::targetNameMissing());
  return true;
}

/// Agency exports drive the engine themselves, and the combination rules do not apply to them.
bool ConversionRun::exportFile() {
  Message message;
  sourceSize_ = sourceSize(settings_, source_);
  ExportContext context = {.settings = settings_,
                           .engine = engine_,
                           .counts = result_.counts,
                           .message = message,
                           .targetIsPartner = source_.partner && source_.partner->format == settings_.targetFormat,
                           .target = result_.target};
  if (audience_.progress != nullptr) context.watch = [this](std::uint64_t bytesRead) { return goesOn(bytesRead); };
  if (!source_.exportFile(context)) return stop(message);
  if (interactive()) person_.show(withAccount(std::move(message)));
  return true;
}

/// The last message to the person, with the account as smaller text.
Message ConversionRun::withAccount(Message message) {
  settleResult();
  if (anyDoubt(result_.counts.doubts)) message.icon = Icon::Exclamation;
  const std::string told = message.detail;
  for (const std::string& line : accountLines(result_)) {
    const bool isTold = line == message.text || (!told.empty() && (line.ends_with(told) || told.ends_with(line)));
    if (!isTold) message.detail += (message.detail.empty() ? "" : "\n") + line;
  }
  return message;
}

bool ConversionRun::confirmWarnings() {
  if (!interactive()) return true;
  if (target_.latLongQuestion != nullptr && isLatLong(settings_.TargetProjectionCode) &&
      !person_.confirm(target_.latLongQuestion())) {
    return false;
  }
  if (crossesDatums(settings_)) person_.show(messages::crossingDatums());
  return true;
}

bool ConversionRun::mayReplaceTarget() {
  std::error_code unknown;
  const std::string& name = settings_.target.fileName;
  const bool asks = interactive() && target_.kind != TargetKind::Screen;
  return !asks || !std::filesystem::is_regular_file(text::pathOf(name), unknown) || person_.mayReplace(name);
}

bool ConversionRun::completeTargetName() {
  std::string& name = settings_.target.fileName;
  if (lacksEnding(name, target_)) {
    if (interactive() && !person_.confirm(endingQuestion(target_))) return false;
    name += target_.fileNameEnding;
    if (const Message* const collision = fileCollision(settings_)) return stop(*collision);
  }
  if (!mayReplaceTarget()) return false;
  if (!interactive() || target_.options == TargetOptions::None) return true;
  return person_.chooseTargetOptions(target_.options);
}

bool ConversionRun::openOutputs() {
  corridor_.findDoubts();
  if (settings_.reportEnabled && settings_.reportFileName.empty()) return stop(messages::reportNameMissing());
  return outputs_.open(engine_) || stopForOutputs();
}

bool ConversionRun::convertPoints() {
  PointRecord point;
  clearUpperVectorHalves();
  for (;;) {
    const ReadState state = corridor_.read(point);
    if (cancelled_) return false;
    switch (state) {
      case ReadState::Point:
        if (!convertPoint(point)) return false;
        break;
      case ReadState::OtherLines:
        if (!outputs_.writeOtherLines(point.otherLines)) return stopForOutputs();
        break;
      case ReadState::End:
        return endOfSource();
      case ReadState::EndedEarly:
        result_.outcome = RunOutcome::EndedEarly;
        report(corridor_.readerMessage());
        return true;
      case ReadState::Stopped:
        return stopKeepingPoints(corridor_.readerMessage());
    }
  }
}

bool ConversionRun::endOfSource() {
  const text::LineReader& lines = corridor_.lines();
  if (lines.sourceChanged()) addTo(tallyOf(result_.counts.doubts, Doubt::SourceChanged), 0);
  switch (lines.fault()) {
    case text::LineReader::Fault::None:
      return true;
    case text::LineReader::Fault::Stopped:
    case text::LineReader::Fault::System:
      return stop(systemMessage(lines.error()));
    case text::LineReader::Fault::LineTooLong:
      return stopKeepingPoints(systemMessage(lines.error()));
  }
  return true;
}

bool ConversionRun::stopKeepingPoints(const Message& message) {
  return outputs_.finish(false) ? stop(message) : stopForOutputs();
}

/// False only when the run has to stop: a refused point is skipped.
bool ConversionRun::convertPoint(PointRecord& point) {
  if (const Refusal refusal = corridor_.convert(point)) return skip(point, refusal);
  if (!outputs_.write(point)) return stopForOutputs();
  corridor_.countConverted(point);
  if (audience_.sample != nullptr) audience_.sample->add(point, corridor_.doubts(), false);
  return true;
}

bool ConversionRun::skip(const PointRecord& point, const Refusal& refusal) {
  corridor_.countRefused(point, refusal);
  if (!outputs_.writeRefused(point, refusal.reason)) return stopForOutputs();
  if (audience_.sample != nullptr) audience_.sample->add(point, corridor_.doubts(), true);
  if (!interactive()) return true;
  person_.show(messages::pointRefused(refusal.reason, corridor_.lines().fileName(), point, settings_));
  return audience_.progress == nullptr || goesOn(corridor_.lines().bytesRead());
}

bool ConversionRun::finish() {
  if (!outputs_.finish(true)) return stopForOutputs();
  if (!interactive()) return true;
  const std::string standing = targetStands();
  if (!standing.empty()) {
    person_.show(withAccount(messages::nothingWritten(standing)));
  } else if (!settings_.reportEnabled) {
    person_.show(withAccount(messages::finished()));
  } else if (settleResult(); anyDoubt(result_.counts.doubts)) {
    person_.show(withAccount(messages::finishedInDoubt()));
  }
  if (!settings_.reportEnabled || audience_.screen == nullptr) return true;
  if (settings_.printReport) audience_.screen->printReport(outputs_.heading(), outputs_.reportStart());
  if (source_.kind == SourceKind::File) audience_.screen->showGrid();
  return true;
}

}  // namespace

RunResult convert(RunSettings& settings, ConversionEngine& engine, const FormatTables& formats,
                  const Audience& audience) {
  return ConversionRun(settings, engine, formats, audience).execute();
}

}  // namespace tovak::run
