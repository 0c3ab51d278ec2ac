/// The dialog of the user-defined project.
#pragma once

#include <QDialog>
#include <memory>
#include <optional>
#include <string>

#include "run/conversion_engine.h"
#include "run/user_project.h"

namespace Ui {
class frmTovakProject;
}

namespace tovak::ui {

/// Shows what the engine makes of the definition as it is typed. Accepted: the project is in its file, for the engine
/// to find; rejected: the file is as before.
class frmTovakProject final : public QDialog {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(frmTovakProject)

 public:
  /// Begins with the project of a job, if there is one, else with the one that is stored.
  explicit frmTovakProject(run::ConversionEngine& engine, QWidget* parent = nullptr,
                           const std::optional<run::UserProject>& ofJob = {});
  ~frmTovakProject() override;

 private:
  void load(const std::optional<run::UserProject>& ofJob);
  void check();
  bool followUnit(bool feet);
  void store();
  run::UserProject typed() const;

  std::unique_ptr<Ui::frmTovakProject> ui_;
  run::ConversionEngine& engine_;
  bool definitionInFeet_ = false;
  bool chosenMetres_ = false;  ///< before a definition in feet was typed
  std::string datum_;          ///< of the definition, as last reported by the engine
};

}  // namespace tovak::ui
