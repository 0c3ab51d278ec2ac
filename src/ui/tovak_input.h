/// The dialog in which single points are typed.
#pragma once

#include <QDialog>
#include <QString>
#include <memory>

#include "run/run_settings.h"
#include "run/typed_point.h"

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

/// Accepted: `texts` holds a point with both coordinates. Rejected: the person has finished. The texts are kept when
/// the dialog is shown again, so that a refused point can be corrected.
class frmTovakInput final : public QDialog {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(frmTovakInput)

 public:
  explicit frmTovakInput(const EntryLabels& labels, QWidget* parent = nullptr);
  ~frmTovakInput() override;

  run::TypedTexts texts() const;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void setLabels(const EntryLabels& labels);
  void splitPair(const QString& text);
  void convert();

  bool latLong_ = false;
  std::unique_ptr<Ui::frmTovakInput> ui_;
};

}  // namespace tovak::ui
