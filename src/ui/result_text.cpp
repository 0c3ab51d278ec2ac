#include "ui/result_text.h"

#include <QFileInfo>
#include <QStringList>
#include <algorithm>
#include <array>
#include <map>
#include <utility>
#include <vector>

#include "run/run_messages.h"
#include "ui/qt_text.h"

namespace tovak::ui {
namespace {

using run::RecordCounts;
using run::RunOutcome;
using run::Tally;
using run::TargetState;

constexpr std::size_t kMostLines = 12;  ///< named for a reason or a doubt

QString counted(std::uint64_t count, const char* one, const char* several) {
  return QString("%L1 %2").arg(count).arg(count == 1 ? one : several);
}

/// "line 7" or "lines 7, 9, 12 and 3 more"; empty where lines have no numbers.
QString linesText(const std::vector<run::TalliedLine>& lines, std::uint64_t count) {
  QStringList numbers;
  for (const run::TalliedLine& line : lines) {
    if (line.line == 0 || static_cast<std::size_t>(numbers.size()) == kMostLines) break;
    const QString number = QString::number(line.line);
    numbers << (line.file.empty() ? number : number + " of " + QFileInfo(toQString(line.file)).fileName());
  }
  if (numbers.isEmpty()) return {};
  const std::uint64_t rest = count - static_cast<std::uint64_t>(numbers.size());
  return (count == 1 ? "line " : "lines ") + numbers.join(", ") +
         (rest == 0 ? QString() : QString(" and %L1 more").arg(rest));
}

struct Part {
  std::uint64_t count = 0;
  QString text;
};

/// What follows a text about some lines.
QString inBrackets(const QString& lines) {
  return lines.isEmpty() ? QString() : " (" + lines + ')';
}

QString row(const char* head, std::uint64_t count, const QString& text) {
  return QString("<tr><td><b>%1</b>&nbsp;&nbsp;</td><td align=\"right\">%L2&nbsp;&nbsp;</td><td>%3</td></tr>")
      .arg(head)
      .arg(count)
      .arg(text.toHtmlEscaped());
}

/// A row with a sum and, where it has several parts, one for each of them below.
QString rowsOf(const char* head, std::uint64_t sum, const std::vector<Part>& parts) {
  if (parts.size() == 1) return row(head, sum, parts.front().text);
  QString rows = row(head, sum, {});
  for (const Part& part : parts) rows += row("", part.count, part.text);
  return rows;
}

std::vector<Part> passedOver(const RecordCounts& counts) {
  const std::array<std::pair<const Tally*, const char*>, 5> kinds = {
      {{&counts.withoutDelimiter, "without delimiter"},
       {&counts.zeroCoordinate, "with a zero coordinate"},
       {&counts.comment, "comment"},
       {&counts.noPoint, "without a point"},
       {&counts.otherZone, "of another zone"}}};
  std::vector<Part> parts;
  for (const auto& [tally, what] : kinds) {
    if (tally->count != 0) parts.push_back({tally->count, what + inBrackets(linesText(tally->lines, tally->count))});
  }
  return parts;
}

/// The refused points by their reasons.
std::vector<Part> refusals(const RecordCounts& counts) {
  std::map<std::string, std::vector<run::TalliedLine>> byReason;
  std::uint64_t rest = recordsSkipped(counts);
  for (const Tally* const tally : {&counts.refusedByEngine, &counts.refusedAngle, &counts.refusedCounty}) {
    rest -= tally->lines.size();
    for (const run::TalliedLine& line : tally->lines) byReason[line.reason].push_back(line);
  }
  std::vector<Part> parts;
  parts.reserve(byReason.size() + 1);
  for (const auto& [reason, lines] : byReason) {
    parts.push_back({lines.size(), toQString(reason).replace('\n', ' ') + inBrackets(linesText(lines, lines.size()))});
  }
  if (rest != 0) parts.push_back({rest, "further ones"});
  return parts;
}

QString doubtRows(const run::Doubts& doubts) {
  QString rows;
  for (std::size_t kind = 0; kind < run::kDoubtKinds; ++kind) {
    const run::DoubtTally& tally = doubts[kind];
    if (tally.count == 0) continue;
    rows += row(rows.isEmpty() ? "Doubts" : "", tally.count,
                toQString(doubtPhrase(doubts, static_cast<run::Doubt>(kind))) +
                    inBrackets(linesText(tally.lines, tally.count)));
  }
  return rows;
}

QString targetWords(TargetState state) {
  switch (state) {
    case TargetState::Written:
    case TargetState::NotOpened:
      return {};
    case TargetState::OlderKept:
      return " (left as it was)";
    case TargetState::NoFile:
      return " (not written)";
    case TargetState::Incomplete:
      return " (received only a part of the points)";
  }
  return {};
}

QString fileRow(const char* what, const QString& path, const QString& words) {
  return QString("<tr><td><b>%1</b>&nbsp;&nbsp;</td><td>%2</td></tr>").arg(what, (path + words).toHtmlEscaped());
}

QString absolute(const std::string& name) {
  return QFileInfo(toQString(name)).absoluteFilePath();
}

QString fileRows(const FinishedRun& run) {
  QString rows;
  if (!run.settings.source.fileName.empty()) rows += fileRow("Source", absolute(run.settings.source.fileName), {});
  if (run.result.target != TargetState::NotOpened) {
    rows += fileRow("Target", absolute(run.result.targetName), targetWords(run.result.target));
  }
  if (!run.result.reportName.empty()) rows += fileRow("Report", absolute(run.result.reportName), {});
  if (run.result.reportName.empty() && run.result.outcome == RunOutcome::Cancelled && run.settings.reportEnabled) {
    rows += fileRow("Report", absolute(run.settings.reportFileName), " (left as it was)");
  }
  return rows;
}

QString outcomeWords(const run::RunResult& result) {
  QString message = toQString(result.MessageText).replace('\n', ' ');
  switch (result.outcome) {
    case RunOutcome::Cancelled:
      return "The run was stopped before its end; ";
    case RunOutcome::Stopped:
      return message.isEmpty() ? QString("The run ended early; ") : message + ' ';
    case RunOutcome::EndedEarly:
      return message + ' ';
    case RunOutcome::Finished:
      break;
  }
  return {};
}

}  // namespace

ResultHeadline resultHeadline(const FinishedRun& run) {
  const run::RunResult& result = run.result;
  const RecordCounts& counts = result.counts;
  const std::uint64_t points = counts.converted + recordsSkipped(counts);
  const QString standing = toQString(run::messages::targetStands(result.target, counts, result.targetName));
  ResultHeadline headline;
  headline.text = outcomeWords(result);
  if (!standing.isEmpty()) {
    headline.text += standing;
  } else if (result.outcome == RunOutcome::Cancelled) {
    headline.text += counted(points, "point was read", "points were read");
  } else if (counts.converted == points && points != 0) {
    headline.text +=
        points == 1 ? QString("The point was converted") : QString("All %L1 points were converted").arg(points);
  } else {
    headline.text += QString("%L1 of %2 %3 converted")
                         .arg(counts.converted)
                         .arg(counted(points, "point", "points"))
                         .arg(counts.converted == 1 ? "was" : "were");
  }
  if (anyDoubt(counts.doubts)) headline.text += "; there are doubts";
  const bool bad = result.outcome == RunOutcome::Stopped || result.outcome == RunOutcome::Cancelled ||
                   !standing.isEmpty() || counts.converted == 0;
  const bool doubtful =
      anyDoubt(counts.doubts) || recordsSkipped(counts) != 0 || result.outcome == RunOutcome::EndedEarly;
  headline.verdict = bad ? run::Verdict::Bad : doubtful ? run::Verdict::Doubtful : run::Verdict::Good;
  return headline;
}

QString resultText(const FinishedRun& run) {
  const RecordCounts& counts = run.result.counts;
  QString rows = row("Records read", recordsRead(counts), {}) + row("Converted", counts.converted, {});
  rows += rowsOf("Skipped", recordsSkipped(counts), refusals(counts));
  rows += rowsOf("Passed over", recordsPassedOver(counts), passedOver(counts));
  rows += doubtRows(counts.doubts);
  return "<table>" + rows + "</table><table>" + fileRows(run) + "</table>";
}

}  // namespace tovak::ui
