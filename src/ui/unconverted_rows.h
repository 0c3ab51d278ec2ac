/// The table of lines that were not converted.
#pragma once

#include <QAbstractTableModel>
#include <QItemSelectionModel>
#include <QString>
#include <cstddef>

#include "run/unconverted_lines.h"

namespace tovak::ui {

class UnconvertedRows final : public QAbstractTableModel {
 public:
  enum Column { kLine, kText, kReason, kColumns };

  using QAbstractTableModel::QAbstractTableModel;

  void setLines(run::UnconvertedLines lines);
  const run::UnconvertedLines& lines() const { return lines_; }

  /// The whole list, and how many lines are not in it: cells separated by tabs, rows by line feeds.
  QString listText() const;
  /// The rows with a selected cell.
  QString rowsText(const QItemSelectionModel& selection) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

 private:
  QString rowText(int row) const;

  run::UnconvertedLines lines_;
};

}  // namespace tovak::ui
