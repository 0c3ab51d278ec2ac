/// The list of all systems that the engine knows.
#pragma once

#include <QDialog>
#include <cstdint>
#include <optional>

#include "run/conversion_engine.h"

class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace tovak::ui {

/// Number, name and datum of every system that matches all words of the search text.
class frmTovakSystems : public QDialog {
 public:
  /// `chosen` is the code selected at first, `search` the text to search for.
  frmTovakSystems(run::ConversionEngine& engine, std::int16_t chosen, const QString& search, QWidget* parent);

  /// The code that was picked; nothing when none is selected.
  std::optional<std::int16_t> code() const;

 private:
  void fill(run::ConversionEngine& engine, std::int16_t chosen);
  void search(const QString& text);
  bool eventFilter(QObject* watched, QEvent* event) override;

  QLineEdit* txtSearch_;
  QTreeWidget* lstSystems_;
  QPushButton* cmdChoose_;
};

}  // namespace tovak::ui
