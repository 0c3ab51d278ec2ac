/// The dialog that tells which Tovak this is.
#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class frmTovakAbout;
}

namespace tovak::ui {

class frmTovakAbout final : public QDialog {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(frmTovakAbout)

 public:
  explicit frmTovakAbout(QWidget* parent = nullptr);
  ~frmTovakAbout() override;

 private:
  std::unique_ptr<Ui::frmTovakAbout> ui_;
};

}  // namespace tovak::ui
