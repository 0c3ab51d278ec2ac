#include "ui/tovak_com_del.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <system_error>
#include <utility>

#include "formats/delimited/field_codes.h"
#include "run/projection_code.h"
#include "run/run_messages.h"
#include "text/native_path.h"
#include "text/strings.h"
#include "ui/format_preview_table.h"
#include "ui/help_key.h"
#include "ui/message_box.h"
#include "ui/qt_text.h"
#include "ui_tovak_com_del.h"

namespace tovak::ui {
namespace {

using formats::delimited::EditorPurpose;
using formats::delimited::FormatEditor;

/// The list of fields and the delimiter: each byte is a character.
QString fromBytes(const std::string& text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

/// A new text is shown from its beginning.
void setTextOf(QLineEdit& box, const QString& text) {
  if (box.text() != text) box.setText(text);
  if (!box.hasFocus()) box.setCursorPosition(0);
}

bool isKey(const QEvent& event, std::initializer_list<int> keys) {
  if (event.type() != QEvent::KeyPress) return false;
  const int pressed = static_cast<const QKeyEvent&>(event).key();
  return std::find(keys.begin(), keys.end(), pressed) != keys.end();
}

/// A file that could not be read may hold formats that the person still wants to repair by hand.
bool mayReplace(QWidget* window, const std::string& path) {
  std::error_code unknown;
  if (!std::filesystem::exists(text::pathOf(path), unknown)) return true;
  const std::string fault = formats::delimited::loadDefinitions(path).error;
  if (fault.empty()) return true;
  return askQuestion(window, {.text = fault + "\nDo you want to replace this file by the formats of the list?",
                              .title = "Definitions File",
                              .icon = run::Icon::Question});
}

}  // namespace

frmTovakComDel::frmTovakComDel(formats::delimited::DefinedFormats& formats, EditorPurpose purpose,
                               run::RunSettings& settings, std::string definitionsFile, QWidget* parent)
    : QDialog(parent),
      ui_(std::make_unique<Ui::frmTovakComDel>()),
      editor_(formats, purpose),
      purpose_(purpose),
      settings_(settings),
      definitionsFile_(std::move(definitionsFile)) {
  ui_->setupUi(this);
  helpOnF1(*this, "delimited-formats");
  setWindowTitle(toQString(formats::delimited::editorTitle(purpose)));
  resize(size().boundedTo(screen()->availableSize()));
  if (purpose == EditorPurpose::InputFile) {
    sourceStart_ = formats::delimited::readSourceStart(std::string(text::trimBlanks(settings.source.fileName)));
  }
  for (const formats::delimited::FieldKind& kind : formats::delimited::kFieldKinds)
    ui_->AddFmt->addItem(toQString(kind.editorName));
  ui_->AddFmt->setCurrentRow(0);
  connectList();
  connectFields();
  connectRest();
  refresh();
  ui_->FmtList->setFocus();
}

frmTovakComDel::~frmTovakComDel() = default;

void frmTovakComDel::connectList() {
  QComboBox& names = *ui_->FmtNames;
  // Otherwise the box would jump to another entry with the typed name, and complete what is typed to match one.
  names.setCompleter(nullptr);
  disconnect(names.lineEdit(), &QLineEdit::editingFinished, &names, nullptr);
  connect(names.lineEdit(), &QLineEdit::textEdited, this,
          [this](const QString& text) { typedName_ = text.toStdString(); });
  connect(names.lineEdit(), &QLineEdit::editingFinished, this, &frmTovakComDel::takeTyped);
  connect(&names, &QComboBox::activated, this, &frmTovakComDel::showEntry);
  connectChange("btnNewFmt", &FormatEditor::addFormat);
  connectChange("btnCpyFmt", &FormatEditor::copyFormat);
  connectChange("btnDelFmt", &FormatEditor::removeFormat);
  connect(ui_->btnSaveFmts, &QPushButton::clicked, this, &frmTovakComDel::save);
}

void frmTovakComDel::connectFields() {
  connectChange("btnDelete", &FormatEditor::deleteField);
  connect(ui_->btnNextFld, &QPushButton::clicked, this, [this] { moveCursor(&FormatEditor::nextField); });
  connect(ui_->btnPrevFld, &QPushButton::clicked, this, [this] { moveCursor(&FormatEditor::previousField); });
  connect(ui_->FmtList, &QPlainTextEdit::cursorPositionChanged, this, [this] {
    editor_.placeCursor(static_cast<std::size_t>(ui_->FmtList->textCursor().position()));
    markField();
  });
  connect(ui_->AddFmt, &QListWidget::itemClicked, this,
          [this](const QListWidgetItem* item) { addField(ui_->AddFmt->row(item)); });
  ui_->AddFmt->installEventFilter(this);
  ui_->FmtList->installEventFilter(this);
}

void frmTovakComDel::connectRest() {
  connect(ui_->Delim, &QLineEdit::textEdited, this,
          [this](const QString& text) { typedDelimiter_ = text.toStdString(); });
  connect(ui_->Delim, &QLineEdit::editingFinished, this, &frmTovakComDel::takeTyped);
  connect(ui_->lstLLFormat, &QComboBox::activated, this, [this](int form) {
    act([this, form] { return editor_.setLatLongFormat(static_cast<std::uint8_t>(form)); });
  });
  connectChange("btnGenHdr", &FormatEditor::generateHeader);
  connect(ui_->btnEditHdr, &QPushButton::clicked, this, &frmTovakComDel::openHeader);
  connect(ui_->HdrList, &QLineEdit::textEdited, this,
          [this](const QString& text) { act([&] { return editor_.setHeader(text.toStdString()); }); });
  connect(ui_->chkShowHead, &QCheckBox::clicked, this,
          [this](bool include) { act([this, include] { return editor_.includeHeader(include); }); });
  connect(ui_->btnDone, &QPushButton::clicked, this, &frmTovakComDel::choose);
  connect(ui_->btnCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmTovakComDel::connectChange(const char* button, Refusal (FormatEditor::*change)()) {
  connect(findChild<QPushButton*>(QString::fromLatin1(button)), &QPushButton::clicked, this,
          [this, change] { act([this, change] { return (editor_.*change)(); }); });
}

void frmTovakComDel::act(const std::function<Refusal()>& change) {
  if (!takeTyped()) return;
  const std::size_t before = editor_.index();
  const std::size_t count = editor_.listNames().size();
  const Refusal refusal = change();
  if (editor_.index() != before || editor_.listNames().size() != count) headerOpen_ = false;
  refresh();
  if (refusal) showMessage(this, *refusal);
}

bool frmTovakComDel::takeTyped() {
  const std::optional<std::string> name = std::exchange(typedName_, std::nullopt);
  const std::optional<std::string> delimiter = std::exchange(typedDelimiter_, std::nullopt);
  if (closing_ || (!name && !delimiter)) return true;
  Refusal refusal;
  if (name) refusal = editor_.rename(*name);
  if (delimiter && !refusal) refusal = editor_.setDelimiter(*delimiter);
  refresh();
  if (refusal) showMessage(this, *refusal);
  return !refusal;
}

void frmTovakComDel::showEntry(int index) {
  act([this, index]() -> Refusal {
    editor_.show(static_cast<std::size_t>(index));
    return std::nullopt;
  });
}

void frmTovakComDel::addField(int code) {
  act([this, code] { return editor_.addField(static_cast<std::int16_t>(code)); });
}

void frmTovakComDel::moveCursor(void (FormatEditor::*step)()) {
  act([this, step]() -> Refusal {
    (editor_.*step)();
    return std::nullopt;
  });
}

void frmTovakComDel::openHeader() {
  act([this] {
    const Refusal refusal = editor_.mayChange();
    headerOpen_ = !refusal;
    return refusal;
  });
  if (!headerOpen_) return;
  ui_->HdrList->setFocus();
  ui_->HdrList->end(false);
}

void frmTovakComDel::save() {
  if (!takeTyped()) return;
  if (definitionsFile_.empty()) {
    showMessage(this, run::systemMessage("There is no data folder to save the formats in."));
    return;
  }
  std::string error;
  if (!mayReplace(this, definitionsFile_)) return;
  const bool saved = editor_.save(definitionsFile_, error);
  refresh();
  if (saved) ui_->lblSaved->setText(tr("The formats are saved."));
  if (!saved) showMessage(this, run::systemMessage(error));
}

void frmTovakComDel::choose() {
  if (!takeTyped()) return;
  editor_.choose(settings_);
  accept();
}

/// Anything typed but not yet taken when the dialog closes is dropped silently.
void frmTovakComDel::done(int result) {
  closing_ = true;
  QDialog::done(result);
}

bool frmTovakComDel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == ui_->AddFmt && isKey(*event, {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})) {
    addField(ui_->AddFmt->currentRow());
    return true;
  }
  if (watched == ui_->FmtList && isKey(*event, {Qt::Key_Delete})) {
    ui_->btnDelete->click();
    return true;
  }
  return QDialog::eventFilter(watched, event);
}

void frmTovakComDel::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && ui_->btnCancel != nullptr) refresh();
}

void frmTovakComDel::refresh() {
  refreshNames();
  refreshFields();
  refreshPreview();
  ui_->lblSaved->setText(editor_.unsaved() ? tr("There are changes that are not saved.") : QString());
}

void frmTovakComDel::refreshNames() {
  QComboBox& names = *ui_->FmtNames;
  QStringList listed;
  for (const std::string& name : editor_.listNames()) listed += toQString(name);
  while (names.count() > listed.size()) names.removeItem(names.count() - 1);
  while (names.count() < listed.size()) names.addItem(QString());
  for (int i = 0; i < names.count(); ++i) names.setItemText(i, listed[i]);
  names.setCurrentIndex(static_cast<int>(editor_.index()));
  setTextOf(*names.lineEdit(), listed[names.currentIndex()]);
}

void frmTovakComDel::refreshFields() {
  const run::DelimitedFormat& format = editor_.format();
  QPlainTextEdit& list = *ui_->FmtList;
  {
    const QSignalBlocker silent(list);
    const QString fields = fromBytes(editor_.fieldList());
    if (list.toPlainText() != fields) list.setPlainText(fields);
    QTextCursor cursor = list.textCursor();
    cursor.setPosition(static_cast<int>(editor_.cursor()));
    list.setTextCursor(cursor);
  }
  list.ensureCursorVisible();
  markField();
  setTextOf(*ui_->Delim, fromBytes(editor_.delimiterText()));
  ui_->lstLLFormat->setCurrentIndex(format.latLongFormat < ui_->lstLLFormat->count() ? format.latLongFormat : 0);
  setTextOf(*ui_->HdrList, toQString(format.headerLine));
  // A header that cannot be edited must still be readable.
  QPalette readable = palette();
  readable.setColor(QPalette::Disabled, QPalette::Text, palette().color(QPalette::PlaceholderText));
  ui_->HdrList->setPalette(readable);
  ui_->HdrList->setEnabled(headerOpen_);
  ui_->chkShowHead->setChecked(format.includeHeader);
}

/// Marks the field that contains the cursor; after the last field there is none, and a new one is added there.
void frmTovakComDel::markField() {
  QPlainTextEdit& list = *ui_->FmtList;
  const FormatEditor::Place place = editor_.fieldAtCursor();
  QTextEdit::ExtraSelection mark;
  mark.format.setBackground(palette().color(QPalette::Highlight));
  mark.format.setForeground(palette().color(QPalette::HighlightedText));
  mark.cursor = list.textCursor();
  constexpr std::size_t kBehindName = 3;
  const bool behindLast = editor_.cursor() == place.start + place.length;
  mark.cursor.setPosition(static_cast<int>(place.start));
  if (!behindLast) {
    mark.cursor.setPosition(static_cast<int>(place.start + place.length - kBehindName), QTextCursor::KeepAnchor);
  }
  list.setExtraSelections({mark});
}

void frmTovakComDel::refreshPreview() {
  const formats::delimited::SampleSystems systems = purpose_ == EditorPurpose::Utility
                                                        ? formats::delimited::SampleSystems::Both
                                                        : formats::delimited::SampleSystems::OfTarget;
  const formats::delimited::FormatPreview preview =
      purpose_ == EditorPurpose::InputFile
          ? formats::delimited::previewSource(editor_.format(), sourceStart_,
                                              run::isLatLong(settings_.SourceProjectionCode))
          : formats::delimited::previewTarget(editor_.format(), settings_, systems);
  showPreview(*ui_->tblPreview, preview);
  ui_->lblPreview->setText(toQString(preview.note));
  ui_->lblPreview->setToolTip(plainTip(toQString(preview.note)));
}

}  // namespace tovak::ui
