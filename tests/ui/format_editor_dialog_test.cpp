#include <QCheckBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include "formats/delimited/built_in_formats.h"
#include "support/dialog_script.h"
#include "support/temporary_folder.h"
#include "support/widgets.h"
#include "ui/tovak_com_del.h"

namespace tovak::ui {
namespace {

using namespace tests;
using formats::delimited::EditorPurpose;

class FormatEditorDialog : public testing::Test {
 protected:
  frmTovakComDel& open(EditorPurpose purpose, const std::string& file = {}) {
    dialog = std::make_unique<frmTovakComDel>(formats, purpose, settings, file);
    dialog->show();
    activate();
    return *dialog;
  }
  void activate() {
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  }
  QComboBox& names() { return control<QComboBox>(*dialog, "FmtNames"); }
  QPlainTextEdit& fields() { return control<QPlainTextEdit>(*dialog, "FmtList"); }
  QTableWidget& preview() { return control<QTableWidget>(*dialog, "tblPreview"); }
  void add(int kind) {
    auto& kinds = control<QListWidget>(*dialog, "AddFmt");
    kinds.setCurrentRow(kind);
    QTest::keyClick(&kinds, Qt::Key_Space);
  }
  void clickInFields(int position) {
    QTextCursor at(fields().document());
    at.setPosition(position);
    QTest::mouseClick(fields().viewport(), Qt::LeftButton, {}, fields().cursorRect(at).center());
  }
  /// Types over what a box shows and leaves it.
  void type(QLineEdit& line, const char* text) {
    activate();
    line.setFocus();
    line.selectAll();
    QTest::keyClicks(&line, text);
    fields().setFocus();
  }

  const TemporaryFolder folder;
  formats::delimited::DefinedFormats formats = {.table = {formats::delimited::standardFormat()},
                                                .saved = {formats::delimited::standardFormat()}};
  run::RunSettings settings;
  DialogScript script;
  std::unique_ptr<frmTovakComDel> dialog;
};

TEST_F(FormatEditorDialog, MakesAFormatSavesItAndChoosesIt) {
  settings.source.fileName = folder.write("in.csv", "7;10;20\nheading;0;\nnone\n");
  settings.SourceProjectionCode = 4;
  const std::string file = folder.file("Tovak.cdf");
  open(EditorPurpose::InputFile, file);
  press(*dialog, "btnNewFmt");
  EXPECT_EQ(names().currentText(), "New Format (change name before saving)");
  EXPECT_EQ(caption(*dialog, "btnDelete"), "Delete  Field");
  add(3);
  add(1);
  add(2);
  QTest::keyClicks(&fields(), "typed");
  EXPECT_EQ(fields().toPlainText(), "Number , XCoord/Easting/Longitude , Name , ");
  clickInFields(3);
  press(*dialog, "btnNextFld");
  EXPECT_EQ(fields().textCursor().position(), 9);
  add(0);
  EXPECT_EQ(fields().textCursor().position(), 36);
  press(*dialog, "btnNextFld");
  press(*dialog, "btnNextFld");
  press(*dialog, "btnPrevFld");
  press(*dialog, "btnDelete");
  QTest::keyClick(&fields(), Qt::Key_Home, Qt::ControlModifier);
  type(box(*dialog, "Delim"), ";");
  EXPECT_EQ(fields().toPlainText(), "Number ; YCoord-Northing-Latitude ; XCoord/Easting/Longitude ; ");

  // The line below the headings has no delimiter; two fields of the headings are marked.
  EXPECT_EQ(preview().rowCount(), 3);
  EXPECT_EQ(preview().item(0, 1)->text(), "10");
  EXPECT_EQ(preview().item(0, 1)->background().style(), Qt::NoBrush);
  EXPECT_NE(preview().item(1, 1)->background().style(), Qt::NoBrush);
  EXPECT_EQ(preview().columnSpan(2, 0), 3);

  QLineEdit& header = box(*dialog, "HdrList");
  EXPECT_FALSE(header.isEnabled());
  press(*dialog, "btnGenHdr");
  press(*dialog, "btnEditHdr");
  EXPECT_TRUE(header.isEnabled() && header.hasFocus());
  QTest::keyClicks(&header, "Z;");
  press(*dialog, "chkShowHead");
  QComboBox& angles = control<QComboBox>(*dialog, "lstLLFormat");
  angles.setCurrentIndex(3);
  emit angles.activated(3);
  press(*dialog, "btnSaveFmts");
  EXPECT_NE(contentsOf(file).find("\x01New Format\r\n 59 \r\n 3~ 0~ 1~\r\nPoint Number;Y Coordinate;X Coordinate;Z;"
                                  "\r\n 3 \r\nTrue\r\n"),
            std::string::npos);
  // A name of another entry is only a name.
  press(*dialog, "btnCpyFmt");
  type(*names().lineEdit(), "Tovak Standard");
  EXPECT_EQ(names().currentIndex(), 2);
  // What is still being typed counts for the button that is pressed.
  names().lineEdit()->setFocus();
  names().lineEdit()->selectAll();
  QTest::keyClicks(names().lineEdit(), "mine");
  press(*dialog, "btnDone");
  EXPECT_EQ(dialog->result(), QDialog::Accepted);
  EXPECT_EQ(settings.sourceDelimited.name, "mine");
  EXPECT_EQ(settings.sourceDelimited, formats.table[2]);
  EXPECT_EQ(open(EditorPurpose::InputFile).windowTitle(), " User-Defined Delimited Format for Input File");
  EXPECT_EQ(names().currentIndex(), 2);
  EXPECT_TRUE(script.boxes.empty());
}

TEST_F(FormatEditorDialog, RefusesAndFails) {
  settings.targetDelimited.name = "kept";
  settings.TargetProjectionCode = 0;
  open(EditorPurpose::OutputFile, folder.file("none/Tovak.cdf"));
  add(2);
  type(*names().lineEdit(), "mine");
  EXPECT_EQ(names().currentText(), "Tovak Standard");
  auto& showHeader = control<QCheckBox>(*dialog, "chkShowHead");
  showHeader.setFocus();
  showHeader.click();
  EXPECT_FALSE(showHeader.isChecked());
  EXPECT_EQ(dialog->focusWidget(), &fields());
  for (const char* const button : {"btnDelFmt", "btnDelete", "btnGenHdr", "btnEditHdr"}) press(*dialog, button);
  ASSERT_EQ(script.boxes.size(), 7U);
  for (const DialogScript::Box& shown : script.boxes) {
    EXPECT_EQ(shown.text, "The Tovak Standard Format cannot be modified.  Try making a copy.");
  }
  EXPECT_EQ(formats.table, formats.saved);
  press(*dialog, "btnCpyFmt");
  press(*dialog, "btnSaveFmts");
  EXPECT_EQ(script.boxes.back().text, folder.file("none/Tovak.cdf") + ": No such file or directory");
  EXPECT_EQ(formats.table.size(), 2U);
  EXPECT_EQ(preview().item(0, 0)->text(),
            "485649.01137,-954724.15930,Alder Bridge,101,912.482,-27.105,885.377,rest of "
            "the line");
  press(*dialog, "btnCancel");
  EXPECT_EQ(dialog->result(), QDialog::Rejected);
  EXPECT_EQ(settings.targetDelimited.name, "kept");

  // A definitions file that cannot be read is replaced only when that is wanted.
  open(EditorPurpose::Utility, folder.write("Tovak.cdf", "\x01half\r\n"));
  press(*dialog, "btnSaveFmts");
  EXPECT_EQ(script.boxes.back().title, "Definitions File");
  EXPECT_EQ(contentsOf(folder.file("Tovak.cdf")), "\x01half\r\n");
  script.expect("QMessageBox", [](QDialog& question) { question.done(QMessageBox::Yes); });
  press(*dialog, "btnSaveFmts");
  EXPECT_EQ(formats::delimited::loadDefinitions(folder.file("Tovak.cdf")).value, formats.table);
}

}  // namespace
}  // namespace tovak::ui
