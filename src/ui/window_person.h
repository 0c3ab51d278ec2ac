/// The person at the window.
#pragma once

#include <QElapsedTimer>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "run/conversion_engine.h"
#include "run/person.h"
#include "run/run_settings.h"
#include "run/typed_point.h"
#include "ui/tovak_delorme.h"
#include "ui/tovak_input.h"
#include "ui/tovak_maptech.h"
#include "ui/tovak_output.h"
#include "ui/tovak_wpt_txt.h"

namespace tovak::ui {

/// Lives as long as one run.
class WindowPerson final : public run::Person, public run::TypedPoints, public run::Screen, public run::Progress {
 public:
  /// Shows how far the run is, and lets the window respond. False when the person wants it to stop.
  using ShowProgress = std::function<bool(const run::Reached& reached)>;

  /// What the window knows.
  struct Knowledge {
    const std::set<std::string>& ownTargets;  ///< targets that may be replaced without asking the person
    QString suggestion;                       ///< what may help when a point is refused; empty for nothing
  };

  /// `settings` are those of the run.
  WindowPerson(QWidget& window, run::RunSettings& settings, run::ConversionEngine& engine, Knowledge knowledge,
               ShowProgress showProgress);
  WindowPerson(const WindowPerson&) = delete;
  WindowPerson& operator=(const WindowPerson&) = delete;
  ~WindowPerson() override;

  void show(const run::Message& message) override;
  bool confirm(const run::Message& question) override;
  bool mayReplace(const std::string& fileName) override;
  bool leaveBatchMode() override { return true; }
  bool chooseTargetOptions(run::TargetOptions options) override;
  bool typePoint(run::PointRecord& point) override;
  void showRow(const run::PointRecord& point, bool freshGrid) override;
  void printReport(const run::ReportHeading& heading, std::uint64_t start) override;
  void showGrid() override;
  bool progress(const run::Reached& reached) override;

  /// The control that the last message was about. It takes no focus during a run.
  const std::string& focus() const { return focus_; }
  /// The output grid; null when no point came into it.
  std::unique_ptr<frmTovakOutput> takeGrid() { return std::move(grid_); }

 private:
  QString sideDescription(std::int16_t code) const;
  frmTovakOutput& grid();

  QWidget& window_;
  run::RunSettings& settings_;
  run::ConversionEngine& engine_;
  const Knowledge knowledge_;
  ShowProgress showProgress_;
  QElapsedTimer sincePaint_;
  bool stopped_ = false;
  std::string focus_;
  bool pointMessages_ = true;
  bool rowsToShow_ = false;
  std::unique_ptr<frmTovakInput> entry_;
  std::unique_ptr<frmTovakOutput> grid_;
};

}  // namespace tovak::ui
