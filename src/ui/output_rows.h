/// The rows of the output grid.
#pragma once

#include <QAbstractTableModel>
#include <QItemSelectionModel>
#include <QString>
#include <array>
#include <vector>

namespace tovak::ui {

class OutputRows final : public QAbstractTableModel {
 public:
  static constexpr int kColumns = 8;
  using Row = std::array<QString, kColumns>;

  using QAbstractTableModel::QAbstractTableModel;

  void clear();
  void add(Row row);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

 private:
  std::vector<Row> rows_;
};

/// The selected cells as one text: cells of a row joined by ",", rows separated by a carriage return alone. Nothing is
/// quoted.
QString copyText(const QItemSelectionModel& selection);

}  // namespace tovak::ui
