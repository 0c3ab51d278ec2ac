/// The editor of the delimited formats.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "formats/delimited/format_editor.h"
#include "formats/delimited/format_preview.h"

namespace Ui {
class frmTovakComDel;
}

namespace tovak::ui {

/// Accepted: the settings have the shown format for the side that the dialog was opened for. Changes to the formats are
/// kept in either case.
class frmTovakComDel final : public QDialog {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(frmTovakComDel)

 public:
  /// `definitionsFile` is where formats are saved; empty when there is no data folder.
  frmTovakComDel(formats::delimited::DefinedFormats& formats, formats::delimited::EditorPurpose purpose,
                 run::RunSettings& settings, std::string definitionsFile, QWidget* parent = nullptr);
  ~frmTovakComDel() override;

  void done(int result) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  using Refusal = formats::delimited::FormatEditor::Refusal;

  void connectList();
  void connectFields();
  void connectRest();
  /// Carries out a change and shows the result.
  void act(const std::function<Refusal()>& change);
  void connectChange(const char* button, Refusal (formats::delimited::FormatEditor::*change)());
  /// Applies what was typed but not yet taken; false when it was refused.
  bool takeTyped();
  void showEntry(int index);
  void addField(int code);
  void moveCursor(void (formats::delimited::FormatEditor::*step)());
  void openHeader();
  void save();
  void choose();

  void refresh();
  void refreshNames();
  void refreshFields();
  void refreshPreview();
  void markField();

  std::unique_ptr<Ui::frmTovakComDel> ui_;
  formats::delimited::FormatEditor editor_;
  const formats::delimited::EditorPurpose purpose_;
  run::RunSettings& settings_;
  const std::string definitionsFile_;
  formats::delimited::SourceStart sourceStart_;
  std::optional<std::string> typedName_;
  std::optional<std::string> typedDelimiter_;
  bool headerOpen_ = false;  ///< the header of the shown entry may be typed into
  bool closing_ = false;
};

}  // namespace tovak::ui
