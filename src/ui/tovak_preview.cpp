// The main window's preview: what a run would make of the source file, and which changes are suggested.
#include <QApplication>
#include <QStatusBar>
#include <algorithm>
#include <utility>

#include "run/area_served.h"
#include "selection/suggestions.h"
#include "ui/preview_panel.h"
#include "ui/tovak.h"
#include "ui_tovak.h"

namespace tovak::ui {
namespace {

using selection::Side;

/// The engine refuses points outside of it.
constexpr PlanBox kAreaServed = {.south = run::kAreaServed.south,
                                 .north = run::kAreaServed.north,
                                 .west = run::kAreaServed.west,
                                 .east = run::kAreaServed.east};

}  // namespace

void frmTovak::connectPreview() {
  previewTimer_.setSingleShot(true);
  connect(&previewTimer_, &QTimer::timeout, this, &frmTovak::showPreview);
  connect(form_->preview, &PreviewPanel::suggestionTaken, this, &frmTovak::takeSuggestion);
}

/// Changes that come together lead to one preview.
void frmTovak::schedulePreview() {
  if (running_) return;
  suggestions_.clear();
  previewTimer_.start(0);
}

/// Dialogs change selections and use the engine, so a preview waits until they are closed.
void frmTovak::showPreview() {
  if (running_ || QApplication::activeModalWidget() != nullptr) return;
  setWindowModified(jobChanged());
  PreviewContent content;
  content.settings = selection::runSettings(selections_, start_.formatTables);
  content.preview = run::previewRun(content.settings, engine_, start_.formatTables);
  suggestions_ = selection::suggestionsFor(selections_, suggestionTools());
  content.areas = shownAreas(content.settings.SourceProjectionCode, content.settings.TargetProjectionCode);
  content.suggestions = suggestions_;
  content.withoutPreview = withoutPreview();
  content.afterRun = content.settings == afterRun_;
  form_->preview->setContent(std::move(content));
}

selection::SuggestionTools frmTovak::suggestionTools() {
  return {.engine = engine_, .formats = start_.formatTables, .layouts = delimitedFormats_.table};
}

const std::vector<PlanArea>& frmTovak::shownAreas(std::int16_t source, std::int16_t target) {
  const std::pair codes(source, target);
  if (shownAreas_.empty() || codes != shownCodes_) {
    const run::UsualAreas* const areas = start_.formatTables.areas;
    shownAreas_ = planAreas(areas != nullptr ? *areas : run::UsualAreas(), engine_, source, target, kAreaServed);
    shownCodes_ = codes;
  }
  return shownAreas_;
}

/// Why there is nothing to preview.
QString frmTovak::withoutPreview() const {
  const auto format = static_cast<std::size_t>(selections_.run.sourceFormat);
  if (start_.formatTables.sources[format].kind == run::SourceKind::Keyboard) {
    return tr("Points will be typed in. Of a source file, the points are shown here before they are written.");
  }
  if (selection::fileName(selections_, Side::Source).empty()) {
    return tr("Choose a source file: its points are shown here before they are written.");
  }
  return tr("There is no preview of this format.");
}

void frmTovak::takeSuggestion(const selection::Suggestion& suggestion) {
  if (running_) return;
  statusBar()->clearMessage();
  suggestion.apply(selections_);
  followSourceLayout();
  if (selection::usesDatabase(selections_, start_.formatTables)) return chooseDatabase();
  refresh();
}

/// The list shows the layout's entry if it has one.
void frmTovak::followSourceLayout() {
  const run::DelimitedFormat& layout = selection::layoutOf(selections_, Side::Source);
  const auto& table = delimitedFormats_.table;
  const auto entry = std::ranges::find(table, layout);
  if (entry != table.end()) delimitedFormats_.chosenSource = static_cast<std::size_t>(entry - table.begin());
}

}  // namespace tovak::ui
