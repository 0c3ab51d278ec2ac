/// The grid of converted points.
#pragma once

#include <QDialog>
#include <QMenu>
#include <cstdint>
#include <memory>

#include "run/point_record.h"
#include "run/run_settings.h"
#include "ui/output_rows.h"

namespace Ui {
class frmTovakOutput;
}

namespace tovak::ui {

/// It says how many points there were in all when it does not hold them all. Cells can be selected and copied; closing
/// the dialog hides it together with its rows.
class frmTovakOutput final : public QDialog {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(frmTovakOutput)

 public:
  /// `settings` are those of the run that the points come from.
  explicit frmTovakOutput(const run::RunSettings& settings, QWidget* parent = nullptr);
  ~frmTovakOutput() override;

  /// Removes all rows and keeps the headings.
  void startGrid();
  /// Adds a row for a converted point; it becomes visible when the dialog is next shown.
  void addRow(const run::PointRecord& point) {
    rows_.add(point);
    ++converted_;
  }
  /// The text after "Source" and "Target": the system's name, " : " and the datum label.
  void setDescriptions(const QString& source, const QString& target);

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void fillWidth();
  void enableCopying(bool enabled);
  void copySelection(QString (*textOf)(const QItemSelectionModel& selection));
  void openMenu(const QPoint& position);

  std::unique_ptr<Ui::frmTovakOutput> ui_;
  OutputRows rows_;
  std::uint64_t converted_ = 0;
  QMenu* const mnuPopUp_;
  int lastColumnWidth_ = 0;
};

}  // namespace tovak::ui
