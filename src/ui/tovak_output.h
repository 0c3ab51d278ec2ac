/// The grid of converted points.
#pragma once

#include <QDialog>
#include <QMenu>
#include <memory>
#include <string_view>

#include "report/point_texts.h"
#include "ui/output_rows.h"

namespace Ui {
class frmTovakOutput;
}

namespace tovak::ui {

/// Cells can be selected and copied; closing the dialog hides it with its rows.
class frmTovakOutput final : public QDialog {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(frmTovakOutput)

 public:
  explicit frmTovakOutput(QWidget* parent = nullptr);
  ~frmTovakOutput() override;

  /// Empties the grid down to its headings.
  void startGrid();
  void addRow(std::string_view number, std::string_view description, const report::PointTexts& texts,
              std::string_view resultText);
  /// What stands behind "Source" and "Target": the system's name, " : " and the datum label.
  void setDescriptions(const QString& source, const QString& target);

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void fillWidth();
  void copySelection();
  void openMenu(const QPoint& position);

  std::unique_ptr<Ui::frmTovakOutput> ui_;
  OutputRows rows_;
  QMenu* const mnuPopUp_;
  int lastColumnWidth_ = 0;
};

}  // namespace tovak::ui
