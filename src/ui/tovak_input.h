/// The dialog in which single points are typed.
#pragma once

#include <QDialog>
#include <QString>
#include <memory>
#include <string_view>

#include "run/point_record.h"
#include "run/run_settings.h"
#include "run/typed_point.h"

class QLineEdit;

namespace Ui {
class frmTovakInput;
}

namespace tovak::ui {

/// What the dialog says about the coordinates it asks for.
struct EntryLabels {
  bool latLong = false;  ///< latitude and longitude, else northing and easting
  QString hint = {};     ///< the form of the coordinates
  QString heightUnit = {};
  QString source = {};  ///< the system's name, " : " and the datum label
};

/// The labels of a run's source, whose system the engine calls `systemName`.
EntryLabels entryLabels(const run::RunSettings& settings, const QString& systemName);

/// What the dialog says about a converted point: its number and the target's name, the coordinates as in the output
/// grid, and convergence and scale factor where the target has them.
QString entryResult(const run::PointRecord& point, const run::RunSettings& settings, const QString& targetName);

/// Accepted: `texts` holds a point with both coordinates. Rejected: the person has finished. The texts are kept when
/// the dialog is shown again, so that a refused point can be corrected.
class frmTovakInput final : public QDialog {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(frmTovakInput)

 public:
  explicit frmTovakInput(const EntryLabels& labels, QWidget* parent = nullptr);
  ~frmTovakInput() override;

  run::TypedTexts texts() const;

  /// The point was converted: the number counts up and the heights are cleared, since they belong to that point alone.
  void showResult(const QString& result);
  /// The box that gets the focus when the dialog is shown again.
  void beginAt(std::string_view box);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void setLabels(const EntryLabels& labels);
  void splitPair(const QString& text);
  void convert();

  bool latLong_ = false;
  QLineEdit* first_ = nullptr;  ///< gets the focus when the dialog is shown
  std::unique_ptr<Ui::frmTovakInput> ui_;
};

}  // namespace tovak::ui
