/// The rows of the output grid.
#pragma once

#include <QAbstractTableModel>
#include <QItemSelectionModel>
#include <QString>
#include <cstddef>
#include <deque>
#include <optional>
#include <string>

#include "run/point_record.h"
#include "run/run_settings.h"

namespace tovak::ui {

/// Keeps the values of converted points. Their texts are made only when a view asks for the rows it shows: a run adds
/// far more rows than anybody looks at.
class OutputRows final : public QAbstractTableModel {
 public:
  static constexpr int kColumns = 8;

  /// `settings` are those of the run; they give the texts their form and accuracy.
  explicit OutputRows(const run::RunSettings& settings) : settings_(settings) {}

  void clear();
  /// Adds a row without telling the views yet.
  void add(const run::PointRecord& point);
  /// Tells the views about the rows added since the last call.
  void showAdded();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

 private:
  /// What is shown of a point: a fifth of a whole record, of which a run may add millions.
  struct Row {
    std::string pointNumber;
    std::string description;
    std::string result;
    std::optional<run::PackedAngles> packedAngles;
    double northing;
    double easting;
    double targetNorthing;
    double targetEasting;
    double elevation;
  };

  const run::RunSettings& settings_;
  std::deque<Row> rows_;
  std::size_t shown_ = 0;
};

/// The selected cells as one text: cells of a row joined by ",", rows separated by a carriage return alone. Nothing is
/// quoted.
QString copyText(const QItemSelectionModel& selection);

/// The same cells as a table for a spreadsheet: a line of headings, then a line a row, cells separated by tabs, lines
/// ended by a line feed. A cell that is not selected, in a column of which others are, is empty.
QString tableText(const QItemSelectionModel& selection);

}  // namespace tovak::ui
