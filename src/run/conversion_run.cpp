#include "run/conversion_run.h"

#include <cmath>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "run/combination_rules.h"
#include "run/default_numbering.h"
#include "run/format_index.h"
#include "run/projection_box.h"
#include "run/projection_code.h"
#include "run/run_messages.h"
#include "run/run_outputs.h"
#include "text/line_reader.h"
#include "text/strings.h"

namespace tovak::run {
namespace {

class ConversionRun {
 public:
  ConversionRun(RunSettings& settings, ConversionEngine& engine, const FormatTables& formats, Person& person)
      : settings_(settings),
        engine_(engine),
        person_(person),
        source_(formats.sources[static_cast<std::size_t>(settings.sourceFormat)]),
        target_(formats.targets[static_cast<std::size_t>(settings.targetFormat)]),
        outputs_(settings, formats, person) {}

  RunResult execute();

 private:
  // Each step returns false when it has stopped the run.
  bool checkGeodeticCsvChoice();
  bool exportFile();
  void prepareFormats();
  bool checkCombination();
  bool confirmWarnings();
  bool takeProjectionTexts();
  bool takeUserDefinedProject(SideSettings& side);
  bool completeTargetName();
  bool openSource();
  bool openOutputs();
  bool convertPoints();
  bool finish();

  bool prepare();
  bool interpretAngles(PointRecord& point) const;
  bool convertPoint(PointRecord& point);
  bool writePoint(const PointRecord& point);
  bool skip(const PointRecord& point, Tally& tally, const std::string& reason);
  bool endOfSource();
  bool stopKeepingPoints(const Message& message);
  bool stopForOutputs() { return stop(systemMessage(outputs_.error())); }

  bool interactive() const { return settings_.BatchMode == 0; }
  bool readsSeveralFiles() const {
    return settings_.sourceFormat == source::GeodeticCsv && settings_.geodeticCsv.sheets.size() > 1;
  }
  void report(const Message& message);
  bool stop(const Message& message);

  RunSettings& settings_;
  ConversionEngine& engine_;
  Person& person_;
  const SourceFormat& source_;
  const TargetFormat& target_;

  RunResult result_;
  Message readerMessage_;
  text::LineReader sourceLines_;
  std::unique_ptr<PointReader> reader_;
  RunOutputs outputs_;
};

RunResult ConversionRun::execute() {
  // Formats chosen in the editor come back after a run that put built-in ones in their place.
  const DelimitedFormat chosenSource = settings_.sourceDelimited;
  const DelimitedFormat chosenTarget = settings_.targetDelimited;
  result_.outcome = RunOutcome::Finished;
  const bool finished = source_.kind == SourceKind::AgencyRun ? exportFile() : prepare() && convertPoints() && finish();
  if (!finished) result_.outcome = RunOutcome::Stopped;
  settings_.sourceDelimited = chosenSource;
  settings_.targetDelimited = chosenTarget;
  return std::move(result_);
}

bool ConversionRun::prepare() {
  if (!checkGeodeticCsvChoice()) return false;
  prepareFormats();
  return checkCombination() && confirmWarnings() && takeProjectionTexts() && completeTargetName() && openSource() &&
         openOutputs();
}

void ConversionRun::report(const Message& message) {
  result_.MessageText = message.text;
  if (settings_.BatchMode == 1 && person_.leaveBatchMode()) settings_.BatchMode = 0;
  if (interactive()) person_.show(message);
}

bool ConversionRun::stop(const Message& message) {
  report(message);
  return false;
}

bool ConversionRun::checkGeodeticCsvChoice() {
  if (settings_.sourceFormat != source::GeodeticCsv) return true;
  const GeodeticCsvChoice& choice = settings_.geodeticCsv;
  if (choice.horizontal == 0) return stop(messages::horizontalReferenceMissing());
  if (choice.zonesOffered && choice.zoneSuffix.empty()) return stop(messages::countyZoneMissing());
  settings_.source.metres = false;
  settings_.source.projectionText = projectionText(settings_.SourceProjectionCode, false);
  settings_.latLongForm = text::AngleForm::DegreesMinutesSeconds;
  return true;
}

/// Agency exports drive the engine themselves and never meet the combination rules.
bool ConversionRun::exportFile() {
  Message message;
  const ExportContext context = {
      .settings = settings_, .engine = engine_, .counts = result_.counts, .person = person_, .message = message};
  if (!source_.exportFile(context)) return stop(message);
  if (interactive()) person_.show(message);
  return true;
}

void ConversionRun::prepareFormats() {
  if (!interactive()) {
    for (DelimitedFormat* format : {&settings_.sourceDelimited, &settings_.targetDelimited}) {
      format->fieldCodes = kStandardFieldCodes;
      format->delimiter = ',';
    }
  }
  if (source_.prepare != nullptr) source_.prepare(settings_);
  if (target_.prepare != nullptr) target_.prepare(settings_);
}

bool ConversionRun::checkCombination() {
  if (const Message* const broken = firstBrokenRule(settings_)) return stop(*broken);
  return target_.kind != TargetKind::AgencyRun || stop(messages::batchSourceMissing());
}

bool ConversionRun::confirmWarnings() {
  if (!interactive()) return true;
  if (settings_.targetFormat == target::TrimbleWaypoints && isLatLong(settings_.TargetProjectionCode) &&
      !person_.confirm(messages::waypointsInLatLong())) {
    return false;
  }
  if (crossesDatums(settings_)) person_.show(messages::crossingDatums());
  return true;
}

/// Takes name, text and unit of a user-defined project from the engine; the side has only a name where there is none.
/// False when a source has none, or when the project cannot be used.
bool ConversionRun::takeUserDefinedProject(SideSettings& side) {
  const std::string data = engine_.GetProjectionData(-kUserDefinedProject);
  const std::size_t separator = data.find('~');
  const bool none = data.find("None Selected") != std::string::npos;
  side.displayName = data.substr(0, separator);
  side.projectionText.clear();
  if (separator != std::string::npos) {
    side.projectionText = data.substr(separator + 1);
    side.metres = marksMetres(side.projectionText);
  } else if (!none) {
    return stop(messages::projectUnusable(data));
  }
  // A target project that is not set up goes to the engine as it is, and the engine refuses its points.
  return !none || &side == &settings_.target;
}

bool ConversionRun::takeProjectionTexts() {
  settings_.source.displayName.clear();
  settings_.target.displayName.clear();
  if (settings_.SourceProjectionCode == kUserDefinedProject && !takeUserDefinedProject(settings_.source)) return false;
  return settings_.TargetProjectionCode != kUserDefinedProject || takeUserDefinedProject(settings_.target);
}

bool ConversionRun::completeTargetName() {
  std::string& name = settings_.target.fileName;
  if (!text::endsWithIgnoringCase(name, target_.fileNameEnding)) {
    if (interactive() && !person_.confirm(messages::changeFileName())) return false;
    name += target_.fileNameEnding;
    if (const Message* const collision = fileCollision(settings_)) return stop(*collision);
  }
  if (!interactive() || target_.options == TargetOptions::None) return true;
  return person_.chooseTargetOptions(target_.options);
}

bool ConversionRun::openSource() {
  if (source_.kind == SourceKind::File && !sourceLines_.open(settings_.source.fileName)) {
    return stop(systemMessage(sourceLines_.error()));
  }
  reader_ = source_.makeReader({.lines = sourceLines_,
                                .settings = settings_,
                                .counts = result_.counts,
                                .person = person_,
                                .message = readerMessage_,
                                .otherLines = target_.takesOtherLines ? &outputs_.targetLines() : nullptr});
  if (reader_->check()) return true;
  const bool faulty = sourceLines_.fault() != text::LineReader::Fault::None;
  return stop(faulty ? systemMessage(sourceLines_.error()) : readerMessage_);
}

bool ConversionRun::openOutputs() {
  if (settings_.reportEnabled && settings_.reportFileName.empty()) return stop(messages::reportNameMissing());
  return outputs_.open(engine_) || stopForOutputs();
}

bool ConversionRun::convertPoints() {
  PointRecord point;
  for (std::uint64_t turn = 1;; ++turn) {
    resetPoint(point);
    switch (reader_->read(point)) {
      case ReadState::Point:
        if (!convertPoint(point)) return false;
        break;
      case ReadState::End:
        return endOfSource();
      case ReadState::EndedEarly:
        result_.outcome = RunOutcome::EndedEarly;
        report(readerMessage_);
        return true;
      case ReadState::Stopped:
        return stopKeepingPoints(readerMessage_);
    }
    if (turn % kProgressStep == 0) person_.progress(recordsRead(result_.counts));
  }
}

bool ConversionRun::endOfSource() {
  switch (sourceLines_.fault()) {
    case text::LineReader::Fault::None:
      return true;
    case text::LineReader::Fault::System:
      return stop(systemMessage(sourceLines_.error()));
    case text::LineReader::Fault::LineTooLong:
      return stopKeepingPoints(systemMessage(sourceLines_.error()));
  }
  return true;
}

bool ConversionRun::stopKeepingPoints(const Message& message) {
  return outputs_.finish(false) ? stop(message) : stopForOutputs();
}

/// False only when the run has to stop: a point that is refused is skipped.
bool ConversionRun::convertPoint(PointRecord& point) {
  if (!settings_.allowBlankPointNumbers && point.pointNumber.empty()) {
    takeDefaultNumber(settings_, point.pointNumber);
  }
  if (isLatLong(settings_.SourceProjectionCode) && !interpretAngles(point)) {
    return skip(point, result_.counts.refusedAngle, messages::noAngle());
  }
  const std::string_view form = settings_.latLongForm == text::AngleForm::DecimalDegrees ? "D" : "S";
  const std::int16_t ErrorCode = engine_.TovakVert(
      point.InNorthLat, point.InEastLon, point.Elevation, settings_.source.projectionText, point.OutNorthLat,
      point.OutEastLon, point.Elevation, settings_.target.projectionText, point.OutInfo, form);
  if (ErrorCode >= 1) {
    return skip(point, result_.counts.refusedByEngine, engine_.ErrorText(ErrorCode));
  }
  return writePoint(point);
}

/// Brings latitude and longitude to decimal degrees, the longitude west whatever its sign in the source.
bool ConversionRun::interpretAngles(PointRecord& point) const {
  const text::AngleForm form = source_.packedAngles ? text::AngleForm::DegreesMinutesSeconds : settings_.latLongForm;
  const std::optional<double> latitude = text::interpretAngle(point.InNorthLat, form);
  const std::optional<double> longitude = text::interpretAngle(point.InEastLon, form);
  if (!latitude || !longitude) return false;
  point.InNorthLat = *latitude;
  point.InEastLon = -std::fabs(*longitude);
  return true;
}

bool ConversionRun::skip(const PointRecord& point, Tally& tally, const std::string& reason) {
  countSkipped(result_.counts, tally, point.sourceLine, reason,
               readsSeveralFiles() ? sourceLines_.fileName() : std::string_view());
  if (!outputs_.writeRefused(point, reason)) return stopForOutputs();
  if (interactive()) person_.show(messages::pointRefused(reason, sourceLines_.fileName(), point.sourceLine));
  return true;
}

bool ConversionRun::writePoint(const PointRecord& point) {
  if (!outputs_.write(point)) return stopForOutputs();
  ++result_.counts.converted;
  return true;
}

bool ConversionRun::finish() {
  if (!outputs_.finish(true)) return stopForOutputs();
  if (!interactive()) return true;
  if (!settings_.reportEnabled) {
    person_.show(messages::finished());
    return true;
  }
  if (settings_.printReport) person_.printReport(outputs_.heading(), outputs_.reportStart());
  if (source_.kind == SourceKind::File) person_.showGrid();
  return true;
}

}  // namespace

RunResult convert(RunSettings& settings, ConversionEngine& engine, const FormatTables& formats, Person& person) {
  return ConversionRun(settings, engine, formats, person).execute();
}

Message systemMessage(const std::string& error) {
  return {.text = error, .title = "File Error", .icon = Icon::Exclamation};
}

}  // namespace tovak::run
