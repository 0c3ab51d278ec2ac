#include "selection/suggestions.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "formats/delimited/built_in_formats.h"
#include "run/format_index.h"
#include "run/projection_code.h"
#include "run/system_data.h"
#include "selection/file_content.h"
#include "selection/own_file.h"
#include "selection/source_trial.h"
#include "selection/system_candidates.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::selection {
namespace {

using run::DelimitedFormat;
using text::AngleForm;
using Change = std::function<void(Selections&)>;

constexpr std::size_t kMostSystems = 3;

struct FormName {
  AngleForm form;
  std::string_view name;
};
constexpr std::array<FormName, 3> kForms = {{{AngleForm::DegreesMinutesSeconds, "degrees, minutes and seconds"},
                                             {AngleForm::DecimalDegrees, "decimal degrees"},
                                             {AngleForm::DegreesDecimalMinutes, "degrees and decimal minutes"}}};

const run::SourceFormat& sourceCard(const Selections& selections, const SuggestionTools& tools) {
  return tools.formats.sources[static_cast<std::size_t>(selections.run.sourceFormat)];
}

std::string systemText(const SuggestionTools& tools, std::int16_t code, bool metres) {
  return run::systemName(tools.engine, code) + (metres ? ", metres" : ", U.S. survey feet");
}

/// The layout with the same fields and another delimiter.
DelimitedFormat withDelimiter(DelimitedFormat layout, char delimiter) {
  layout.delimiter = delimiter;
  return layout;
}

/// The layout with the fields of the two coordinates exchanged; nothing for a layout that lacks either.
std::optional<DelimitedFormat> exchanged(DelimitedFormat layout) {
  std::string& codes = layout.fieldCodes;
  const std::size_t y = codes.find(" 0~");
  const std::size_t x = codes.find(" 1~");
  if (y == std::string::npos || x == std::string::npos) return std::nullopt;
  std::swap(codes[y + 1], codes[x + 1]);
  layout.name += ", coordinates exchanged";
  return layout;
}

void chooseFormat(Selections& selections, const run::FormatTables& formats, const FileContent& content) {
  if (formats.sources[static_cast<std::size_t>(content.format)].fromDatabase) {
    beginDatabase(selections, formats);
  } else {
    chooseSourceFormat(selections, formats, content.format);
  }
}

class Suggestions {
 public:
  Suggestions(const Selections& selections, const SuggestionTools& tools) : selections_(selections), tools_(tools) {}

  std::vector<Suggestion> all() {
    const run::SourceFormat& card = sourceCard(selections_, tools_);
    if (card.kind != run::SourceKind::File || card.fromDatabase) return {};
    const run::Preview preview = tryOnSource(selections_, tools_);
    if (readsWell(preview)) return {};
    const std::vector<std::string> sample = readSample(fileName(selections_, Side::Source));
    if (sample.empty()) return {};
    if (preview.rows.empty()) suggestFormat(recognizeContent(sample));
    suggestOwnSystem(preview, sample.front());
    if (card.choosesLayout) suggestLayouts(sample);
    if (!card.forcedForm) suggestForms();
    if (preview.rows.empty() || misplaced(preview)) {
      suggestSystems();
      if (card.choosesLayout) suggestExchange();
    }
    return std::move(suggestions_);
  }

 private:
  /// Adds a suggestion if the file is read well with its change.
  bool addWhatHelps(std::string label, std::string reason, Change change) {
    Selections changed = selections_;
    change(changed);
    if (!readsWell(tryOnSource(changed, tools_))) return false;
    suggestions_.push_back({std::move(label), std::move(reason), std::move(change)});
    return true;
  }

  void suggestFormat(const std::optional<FileContent>& content) {
    if (!content || content->format == selections_.run.sourceFormat) return;
    std::string name(tools_.formats.sources[static_cast<std::size_t>(content->format)].name);
    suggestions_.push_back({"Read as " + std::move(name), "No point was found, and " + std::string(content->sign) + ".",
                            [formats = tools_.formats, chosen = *content](Selections& selections) {
                              chooseFormat(selections, formats, chosen);
                            }});
  }

  void suggestOwnSystem(const run::Preview& preview, const std::string& firstLine) {
    const run::DoubtTally& other = tallyOf(preview.counts.doubts, run::Doubt::OtherSystem);
    if (other.count == 0) return;
    addWhatHelps("Source: " + other.about, "The file says so in its first line.",
                 [firstLine](Selections& selections) { presetFromIdentification(selections, firstLine); });
  }

  void suggestLayouts(const std::vector<std::string>& sample) {
    const auto choose = [](const DelimitedFormat& layout) {
      return [layout](Selections& selections) { chooseLayout(selections, Side::Source, layout); };
    };
    const DelimitedFormat& chosen = layoutOf(selections_, Side::Source);
    for (const DelimitedFormat& layout : tools_.layouts) {
      if (layout == chosen) continue;
      if (addWhatHelps("Layout: " + layout.name, "All lines of the file's beginning are read with it.",
                       choose(layout))) {
        return;
      }
    }
    const std::optional<FileContent> content = recognizeContent(sample);
    if (!content || content->format != selections_.run.sourceFormat || content->delimiter == chosen.delimiter) return;
    std::string sign(content->sign);
    sign.front() = text::upperCase(sign.front());
    const std::string name = content->delimiter == '\t' ? "tab" : "\"" + std::string(1, content->delimiter) + '"';
    suggestions_.push_back({"Delimiter: " + name, sign + ".", choose(withDelimiter(chosen, content->delimiter))});
  }

  void suggestForms() {
    const bool angles = run::isLatLong(selections_.run.SourceProjectionCode);
    const bool nad27 = run::isNad27(selections_.run.SourceProjectionCode);
    const std::int16_t code = nad27 ? run::kLatLongNad27 : run::kLatLongNad83;
    if (angles && !sourceCard(selections_, tools_).openForm) return;
    for (const FormName& form : kForms) {
      if (angles && form.form == selections_.run.latLongForm) continue;
      const bool added = addWhatHelps(
          (angles ? "Read angles as " : "Read as latitude and longitude in ") + std::string(form.name),
          "Then all points of the file's beginning can be converted.", [code, angles, form](Selections& selections) {
            if (!angles) pickProjection(selections, Side::Source, code);
            chooseLatLongForm(selections, form.form);
          });
      if (added) return;
    }
  }

  /// The points as northings and eastings, in whatever plane system the format reads.
  std::vector<run::PreviewRow> planeRows() {
    for (const std::int16_t code : {selections_.run.SourceProjectionCode, run::kStatePlaneCentral,
                                    run::kStatePlaneNorth, run::kStatePlaneSouth}) {
      if (run::isLatLong(code)) continue;
      for (const bool metres : {selections_.run.source.metres, true}) {
        Selections changed = selections_;
        pickProjection(changed, Side::Source, code);
        chooseUnit(changed, Side::Source, metres);
        run::Preview preview = tryOnSource(changed, tools_);
        if (!preview.rows.empty()) return std::move(preview.rows);
      }
    }
    return {};
  }

  void suggestSystems() {
    std::size_t added = 0;
    for (const SystemCandidate& candidate : systemCandidates(planeRows(), selections_, tools_)) {
      const bool helps = addWhatHelps("Source: " + systemText(tools_, candidate.code, candidate.metres),
                                      "All points of the file's beginning lie in the usual area of this system.",
                                      [candidate](Selections& selections) {
                                        pickProjection(selections, Side::Source, candidate.code);
                                        chooseUnit(selections, Side::Source, candidate.metres);
                                      });
      if (helps && ++added == kMostSystems) return;
    }
  }

  void suggestExchange() {
    const std::optional<DelimitedFormat> layout = exchanged(layoutOf(selections_, Side::Source));
    if (!layout) return;
    addWhatHelps("Exchange the two coordinates",
                 "With the fields of northing and easting exchanged all points lie where they may.",
                 [chosen = *layout](Selections& selections) { chooseLayout(selections, Side::Source, chosen); });
  }

  const Selections& selections_;
  const SuggestionTools& tools_;
  std::vector<Suggestion> suggestions_;
};

/// Whether the first point of a file of this program's own has packed angles: these are below a thousand and have nine
/// decimals, decimal degrees have seven.
bool hasPackedAngles(const std::vector<std::string>& lines, char delimiter) {
  constexpr std::size_t kDegreeDecimals = 7;
  for (std::string_view line : lines) {
    const std::string_view field = text::trimBlanks(text::takeField(line, delimiter));
    const std::optional<double> number = text::strictNumber(field);
    if (!number) continue;
    const std::size_t point = field.find('.');
    return *number >= 1000.0 || point == std::string_view::npos || field.size() - point - 1 > kDegreeDecimals;
  }
  return true;
}

void takeOwnForm(Selections& selections, const SuggestionTools& tools, const std::vector<std::string>& lines) {
  if (!sourceCard(selections, tools).choosesLayout || !run::isLatLong(selections.run.SourceProjectionCode)) return;
  Selections changed = selections;
  const DelimitedFormat standard = formats::delimited::standardFormat();
  chooseLayout(changed, Side::Source, standard);
  chooseLatLongForm(changed, hasPackedAngles(lines, standard.delimiter) ? AngleForm::DegreesMinutesSeconds
                                                                        : AngleForm::DecimalDegrees);
  if (readsWell(tryOnSource(changed, tools))) selections = std::move(changed);
}

void takeDelimiter(Selections& selections, const SuggestionTools& tools, char delimiter) {
  const DelimitedFormat chosen = layoutOf(selections, Side::Source);
  if (chosen.delimiter == delimiter) return;
  const auto stored = std::ranges::find(tools.layouts, delimiter, &DelimitedFormat::delimiter);
  chooseLayout(selections, Side::Source, stored != tools.layouts.end() ? *stored : withDelimiter(chosen, delimiter));
}

}  // namespace

std::vector<Suggestion> suggestionsFor(const Selections& selections, const SuggestionTools& tools) {
  return Suggestions(selections, tools).all();
}

TakenFile takeSourceFile(Selections& selections, const SuggestionTools& tools) {
  TakenFile taken;
  const std::vector<std::string> lines = readSample(fileName(selections, Side::Source));
  if (sourceCard(selections, tools).kind == run::SourceKind::Keyboard) {
    if (const std::optional<FileContent> content = recognizeContent(lines)) {
      chooseFormat(selections, tools.formats, *content);
      if (sourceCard(selections, tools).choosesLayout) takeDelimiter(selections, tools, content->delimiter);
      taken.format = true;
    }
  }
  taken.system = !lines.empty() && presetFromIdentification(selections, lines.front());
  if (taken.system) takeOwnForm(selections, tools, lines);
  return taken;
}

}  // namespace tovak::selection
