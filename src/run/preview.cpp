#include "run/preview.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <tuple>
#include <utility>

#include "run/corridor.h"
#include "run/preview_verdict.h"
#include "run/run_messages.h"
#include "run/run_outputs.h"
#include "text/file_identity.h"
#include "text/line_reader.h"
#include "text/strings.h"

namespace tovak::run {
namespace {

Message notLookedInto(std::string reason) {
  return {.text = std::move(reason), .title = "Source File", .icon = Icon::None};
}

/// Leaves out what does not concern a run until it writes: the names of its files, and whether there is a report.
RunSettings withoutOutputs(RunSettings settings) {
  settings.target.fileName.clear();
  settings.reportEnabled = true;
  settings.reportFileName = "\n";
  return settings;
}

class PreviewRun {
 public:
  PreviewRun(RunSettings& settings, ConversionEngine& engine, const FormatTables& formats, const PreviewLimits& limits)
      : settings_(settings),
        engine_(engine),
        limits_(limits),
        corridor_(settings, engine, formats, preview_.counts),
        outputs_(settings, formats, corridor_.doubts(), nullptr) {
    corridor_.lines().limit(limits.bytes);
  }

  Preview execute();

 private:
  bool prepare();
  bool readsOrdinaryFiles();
  bool allows(std::optional<Message> problem);
  void sendPoints();
  void takeEnd(ReadState state);
  void takePoint(PointRecord& point);
  void takeSourceTexts(PreviewRow& row, const PointRecord& point) const;
  void takeTargetTexts(PreviewRow& row, const PointRecord& point) const;
  void tellDoubts();
  void findPlaces();
  void takeSourceLines();
  const std::vector<std::string>& sheets() const { return settings_.options.geodeticCsv.sheets; }
  bool readsSheets() const { return corridor_.source().fromDatabase && !sheets().empty(); }

  RunSettings& settings_;
  ConversionEngine& engine_;
  const PreviewLimits limits_;
  Preview preview_;
  Corridor corridor_;
  RunOutputs outputs_;
};

Preview PreviewRun::execute() {
  if (corridor_.source().kind != SourceKind::File || settings_.source.fileName.empty()) return std::move(preview_);
  engine_.wantResultTexts(true);
  if (prepare()) {
    sendPoints();
    corridor_.settleDoubts();
    tellDoubts();
    findPlaces();
    takeSourceLines();
  }
  tellVerdict(preview_);
  return std::move(preview_);
}

bool PreviewRun::allows(std::optional<Message> problem) {
  if (!problem) return true;
  // What seems to be missing may only have been cut off by the limit.
  if (!corridor_.lines().limitReached()) preview_.problem = std::move(problem);
  return false;
}

bool PreviewRun::readsOrdinaryFiles() {
  const std::vector<std::string> one = {settings_.source.fileName};
  for (const std::string& name : readsSheets() ? sheets() : one) {
    std::string reason = text::whyNotLookedInto(name);
    if (!reason.empty()) return allows(notLookedInto(std::move(reason)));
  }
  return true;
}

bool PreviewRun::prepare() {
  if (!allows(corridor_.checkChoices())) return false;
  corridor_.prepareFormats();
  preview_.problem = corridor_.checkProjections();
  if (preview_.problem) {
    settings_ = withoutOutputs(std::move(settings_));
    if (corridor_.checkProjections()) return false;
  }
  std::optional<Message> project = corridor_.takeProjectionTexts();
  if (project && project->text.empty()) project->text = "There is no user-defined project.";
  if (!allows(std::move(project)) || !readsOrdinaryFiles() || !allows(corridor_.openSource(nullptr))) return false;
  corridor_.findDoubts();
  return outputs_.openText(engine_, preview_.targetText);
}

void PreviewRun::sendPoints() {
  PointRecord point;
  for (;;) {
    const ReadState state = corridor_.read(point);
    // A record cut off by the limit may lack its end.
    if (corridor_.lines().limitReached()) return;
    if (state == ReadState::OtherLines) {
      outputs_.writeOtherLines(point.otherLines);
    } else if (state != ReadState::Point) {
      return takeEnd(state);
    } else if (preview_.rows.size() == limits_.records) {
      return;
    } else {
      takePoint(point);
    }
  }
}

void PreviewRun::takeEnd(ReadState state) {
  const text::LineReader& lines = corridor_.lines();
  if (lines.fault() != text::LineReader::Fault::None) {
    preview_.problem = systemMessage(lines.error());
    return;
  }
  if (state != ReadState::End) preview_.problem = corridor_.readerMessage();
  preview_.complete = true;
  outputs_.endTarget(state != ReadState::Stopped);
}

void PreviewRun::takePoint(PointRecord& point) {
  PreviewRow& row = preview_.rows.emplace_back();
  if (point.refusal.empty()) row.position = {.northing = point.InNorthLat, .easting = point.InEastLon};
  row.targetBegin = preview_.targetText.size();
  const Refusal refusal = corridor_.convert(point);
  takeSourceTexts(row, point);
  if (refusal) {
    corridor_.countRefused(point, refusal);
    row.fate = Fate::Refused;
    row.reason = refusal.reason;
  } else {
    outputs_.write(point);
    corridor_.countConverted(point);
    row.doubts = corridor_.doubts();
    takeTargetTexts(row, point);
  }
  row.targetEnd = preview_.targetText.size();
}

void PreviewRun::takeSourceTexts(PreviewRow& row, const PointRecord& point) const {
  row.line = point.sourceLine;
  row.file = corridor_.recordFile();
  row.number = point.pointNumber;
  row.description = text::trimBlanks(point.description);
  std::tie(row.northing, row.easting) = sourceCoordinates(settings_, point);
}

void PreviewRun::takeTargetTexts(PreviewRow& row, const PointRecord& point) const {
  corridor_.target().figures(settings_, point, row.target);
  std::string_view info = point.OutInfo;
  row.convergence = text::takeField(info, ' ');
  row.scaleFactor = text::takeField(info, ' ');
}

/// Some doubts concern a file as a whole, so they are told once all points are through.
void PreviewRun::tellDoubts() {
  const Doubts& doubts = preview_.counts.doubts;
  for (PreviewRow& row : preview_.rows) {
    for (std::size_t kind = 0; kind < kDoubtKinds; ++kind) {
      if (!row.doubts.has(static_cast<Doubt>(kind)) || doubts[kind].count == 0) continue;
      row.fate = Fate::Doubtful;
      if (!row.reason.empty()) row.reason += "; ";
      row.reason += doubtPhrase(doubts, static_cast<Doubt>(kind));
    }
  }
}

void PreviewRun::findPlaces() {
  PlaceFinder finder(engine_, settings_);
  for (PreviewRow& row : preview_.rows) {
    if (row.position) row.place = finder.placeOf(row.position->northing, row.position->easting);
  }
}

void PreviewRun::takeSourceLines() {
  if (readsSheets() || preview_.rows.empty()) return;
  text::LineReader lines;
  lines.limit(limits_.bytes);
  lines.open(settings_.source.fileName);
  std::string_view line;
  for (PreviewRow& row : preview_.rows) {
    while (lines.lineNumber() < row.line && lines.next(line)) continue;
    if (lines.lineNumber() == row.line) row.sourceText = line;
  }
}

}  // namespace

std::string_view fateName(Fate fate) {
  constexpr std::array<std::string_view, 3> kNames = {"Converted", "Doubtful", "Refused"};
  return kNames[static_cast<std::size_t>(fate)];
}

Preview previewRun(RunSettings settings, ConversionEngine& engine, const FormatTables& formats,
                   const PreviewLimits& limits) {
  return PreviewRun(settings, engine, formats, limits).execute();
}

}  // namespace tovak::run
