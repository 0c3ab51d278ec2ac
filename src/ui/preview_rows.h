/// The table of a preview: a row for each record, with how the source was read and what would be written.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <cstddef>
#include <vector>

#include "run/preview.h"
#include "run/run_settings.h"
#include "ui/plan_model.h"

namespace tovak::ui {

class PreviewRows final : public QAbstractTableModel {
 public:
  enum Column {
    kLine,
    kFate,
    kNumber,
    kDescription,
    kSourceNorth,
    kSourceEast,
    kTargetNorth,
    kTargetEast,
    kElevation,
    kConvergence,
    kScaleFactor,
    kReason,
    kColumns
  };

  using QAbstractTableModel::QAbstractTableModel;

  /// Headings include the units of the settings.
  void setRows(std::vector<run::PreviewRow> rows, const run::RunSettings& settings);
  const run::PreviewRow& at(int row) const { return rows_[static_cast<std::size_t>(row)]; }
  /// The points that have a place.
  std::vector<PlanPoint> planPoints() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

 private:
  std::vector<run::PreviewRow> rows_;
  QStringList headings_;
};

}  // namespace tovak::ui
