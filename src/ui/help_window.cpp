#include "ui/help_window.h"

#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStyle>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QToolButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>
#include <algorithm>

namespace tovak::ui {
namespace {

constexpr int kAnchorRole = Qt::UserRole;
constexpr int kPositionRole = Qt::UserRole + 1;
constexpr int kTopLevel = 2;  ///< of headings; level 1 is the title of the whole help
constexpr int kMostZoomSteps = 12;
constexpr int kLeastZoomSteps = -4;

QString anchorOf(const QTextBlock& block) {
  for (auto part = block.begin(); !part.atEnd(); ++part) {
    const QStringList names = part.fragment().charFormat().anchorNames();
    if (!names.isEmpty()) return names.first();
  }
  return {};
}

/// In some dark palettes the colour for lines can hardly be told from the background.
QColor lineColour(const QPalette& palette) {
  const QColor paper = palette.color(QPalette::Base);
  const QColor ink = palette.color(QPalette::Text);
  const auto between = [](int from, int to) { return from + (to - from) / 4; };
  return {between(paper.red(), ink.red()), between(paper.green(), ink.green()), between(paper.blue(), ink.blue())};
}

/// Examples and table headings use the palette's second background colour.
QString pageStyle(const QPalette& palette) {
  const QString background = palette.color(QPalette::AlternateBase).name();
  const QString line = lineColour(palette).name();
  const QString fixedFont = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
  return QString(
             "pre { background-color: %1; margin-left: 12px; font-family: '%3'; }"
             "code { font-family: '%3'; }"
             "th { background-color: %1; text-align: left; }"
             "table { border-color: %2; border-style: solid; border-collapse: collapse; margin-top: 6px; "
             "margin-bottom: 8px; }"
             "p, li, td { line-height: 120%; }"
             "h2 { margin-top: 28px; } h3 { margin-top: 20px; }")
      .arg(background, line, fixedFont);
}

QSize fittingSize(const QSize& wanted, const QWidget& window) {
  const QScreen* const screen = window.screen();
  return screen == nullptr ? wanted : wanted.boundedTo(screen->availableSize() * 0.92);
}

}  // namespace

HelpWindow::HelpWindow(const QString& helpFile, QWidget* parent) : QWidget(parent, Qt::Window), helpFile_(helpFile) {
  setObjectName("HelpWindow");
  setWindowTitle("Tovak Help");
  auto* const column = new QVBoxLayout(this);
  auto* const row = new QHBoxLayout;
  column->addLayout(row);
  resize(fittingSize({1000, 680}, *this));
  page_ = new QTextBrowser(this);
  page_->document()->setDocumentMargin(12);
  makeToolBar(*row);
  makePages(*column);
  makeShortcuts();
  followPalette();
}

QToolButton* HelpWindow::addButton(QBoxLayout& row, const char* name, const QString& text, const QString& tip) {
  auto* const button = new QToolButton(this);
  button->setObjectName(name);
  button->setText(text);
  button->setToolTip(tip);
  button->setFocusPolicy(Qt::StrongFocus);
  row.addWidget(button);
  return button;
}

void HelpWindow::makeToolBar(QBoxLayout& row) {
  auto* const back = addButton(row, "back", "&Back", "Back to what was shown before (Alt+Left)");
  auto* const forward = addButton(row, "forward", "F&orward", "Forward again (Alt+Right)");
  auto* const top = addButton(row, "top", "&Contents", "To the contents at the top of the help (Alt+Home)");
  row.addSpacing(8);
  auto* const smaller = addButton(row, "smaller", "A\u2212", "Smaller text (Ctrl+-)");
  auto* const larger = addButton(row, "larger", "A+", "Larger text (Ctrl++)");
  row.addStretch();

  auto* const label = new QLabel("F&ind:", this);
  findText_ = new QLineEdit(this);
  findText_->setObjectName("findText");
  findText_->setPlaceholderText("Ctrl+F");
  findText_->setToolTip("Text to find in the help; Enter finds the next place, Shift+Enter the one before");
  findText_->setClearButtonEnabled(true);
  findText_->setMaximumWidth(260);
  label->setBuddy(findText_);
  findResult_ = new QLabel(this);
  findResult_->setObjectName("findResult");
  row.addWidget(findResult_);
  row.addWidget(label);
  row.addWidget(findText_, 1);
  auto* const previous = addButton(row, "findPrevious", "&Previous", "Find the place before (Shift+F3)");
  auto* const next = addButton(row, "findNext", "&Next", "Find the next place (F3)");

  back->setEnabled(false);
  forward->setEnabled(false);
  connect(page_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
  connect(page_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
  connect(back, &QToolButton::clicked, page_, &QTextBrowser::backward);
  connect(forward, &QToolButton::clicked, page_, &QTextBrowser::forward);
  connect(top, &QToolButton::clicked, this, [this] { showTopic({}); });
  connect(smaller, &QToolButton::clicked, this, [this] { zoom(-1); });
  connect(larger, &QToolButton::clicked, this, [this] { zoom(1); });
  connect(previous, &QToolButton::clicked, this, [this] { find(true); });
  connect(next, &QToolButton::clicked, this, [this] { find(false); });
  connect(findText_, &QLineEdit::textEdited, this, [this] { beginFind(); });
  connect(findText_, &QLineEdit::returnPressed, this,
          [this] { find(QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier)); });
}

void HelpWindow::makePages(QBoxLayout& column) {
  auto* const splitter = new QSplitter(Qt::Horizontal, this);
  contents_ = new QTreeWidget(splitter);
  contents_->setObjectName("contents");
  contents_->setHeaderHidden(true);
  contents_->setToolTip("Contents of the help: choose a section to read it");
  page_->setObjectName("page");
  page_->setOpenExternalLinks(false);
  splitter->addWidget(contents_);
  splitter->addWidget(page_);
  splitter->setStretchFactor(1, 1);
  const int contentsWidth = std::max(width() / 4, 180);
  splitter->setSizes({contentsWidth, width() - contentsWidth});
  splitter->setChildrenCollapsible(true);
  contents_->setMinimumWidth(120);
  page_->setMinimumWidth(240);
  column.addWidget(splitter, 1);

  connect(contents_, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
    if (item != nullptr) showTopic(item->data(0, kAnchorRole).toString());
  });
  connect(page_, &QTextBrowser::sourceChanged, this, [this](const QUrl& url) { selectTopic(url.fragment()); });
  connect(page_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { selectTopicInView(); });
}

void HelpWindow::makeShortcuts() {
  const auto on = [this](const QKeySequence& keys, auto action) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
  };
  const auto startFinding = [this] {
    findText_->setFocus(Qt::ShortcutFocusReason);
    findText_->selectAll();
  };
  on(QKeySequence::Find, startFinding);
  on(Qt::Key_F3, [this] { find(false); });
  on(Qt::SHIFT | Qt::Key_F3, [this] { find(true); });
  on(Qt::ALT | Qt::Key_Left, [this] { page_->backward(); });
  on(Qt::ALT | Qt::Key_Right, [this] { page_->forward(); });
  on(Qt::ALT | Qt::Key_Home, [this] { showTopic({}); });
  on(Qt::CTRL | Qt::Key_Plus, [this] { zoom(1); });
  on(Qt::CTRL | Qt::Key_Equal, [this] { zoom(1); });  // the same key without Shift
  on(Qt::CTRL | Qt::Key_Minus, [this] { zoom(-1); });
  on(Qt::CTRL | Qt::Key_0, [this] { zoom(-zoomSteps_); });
  on(Qt::Key_Escape, [this] { close(); });
}

bool HelpWindow::open(QString* problem) {
  const auto fail = [problem](const QString& text) {
    if (problem != nullptr) *problem = text;
    return false;
  };
  const QString name = QDir::toNativeSeparators(helpFile_);
  QFile file(helpFile_);
  if (!file.open(QIODevice::ReadOnly)) {
    return fail("The help file cannot be opened.\n" + name + ": " + file.errorString());
  }
  file.close();
  page_->setSource(QUrl::fromLocalFile(QFileInfo(helpFile_).absoluteFilePath()), QTextDocument::HtmlResource);
  if (contents_->topLevelItemCount() == 0) fillContents();
  if (contents_->topLevelItemCount() == 0) return fail("The help file holds no help.\n" + name);
  page_->clearHistory();
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  page_->setFocus();
  return true;
}

void HelpWindow::showTopic(const QString& anchor) {
  QUrl url = page_->source();
  url.setFragment(anchor.isEmpty() ? QString() : anchor);
  page_->setSource(url, QTextDocument::HtmlResource);
  if (anchor.isEmpty()) page_->verticalScrollBar()->setValue(0);
}

void HelpWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && page_ != nullptr) followPalette();
}

void HelpWindow::fillContents() {
  const QSignalBlocker quiet(contents_);
  contents_->clear();
  const QTextDocument& document = *page_->document();
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    const int level = block.blockFormat().headingLevel();
    const QString anchor = level < kTopLevel ? QString() : anchorOf(block);
    if (anchor.isEmpty()) continue;
    const int last = contents_->topLevelItemCount() - 1;
    auto* const item = new QTreeWidgetItem({block.text().simplified()});
    item->setData(0, kAnchorRole, anchor);
    item->setData(0, kPositionRole, block.position());
    item->setToolTip(0, item->text(0));
    if (level == kTopLevel || last < 0) {
      contents_->addTopLevelItem(item);
    } else {
      contents_->topLevelItem(last)->addChild(item);
    }
  }
}

/// A document keeps the colours it was read with, so the page on screen is read again.
void HelpWindow::followPalette() {
  page_->document()->setDefaultStyleSheet(pageStyle(palette()));
  if (page_->source().isEmpty()) return;
  const int place = page_->verticalScrollBar()->value();
  page_->reload();
  page_->verticalScrollBar()->setValue(place);
}

void HelpWindow::selectTopic(const QString& anchor) {
  if (anchor.isEmpty()) return;
  for (QTreeWidgetItemIterator item(contents_); *item != nullptr; ++item) {
    if ((*item)->data(0, kAnchorRole).toString() != anchor) continue;
    const QSignalBlocker quiet(contents_);
    contents_->setCurrentItem(*item);
    return;
  }
}

/// Marks the section at the top of the page as the reader scrolls.
void HelpWindow::selectTopicInView() {
  const int top = page_->cursorForPosition({0, 4}).position();
  QTreeWidgetItem* inView = nullptr;
  for (QTreeWidgetItemIterator item(contents_); *item != nullptr; ++item) {
    if ((*item)->data(0, kPositionRole).toInt() > top) break;
    inView = *item;
  }
  const QSignalBlocker quiet(contents_);
  contents_->setCurrentItem(inView);
}

void HelpWindow::zoom(int steps) {
  const int wanted = std::clamp(zoomSteps_ + steps, kLeastZoomSteps, kMostZoomSteps);
  page_->zoomIn(wanted - zoomSteps_);
  zoomSteps_ = wanted;
}

/// While the person is typing, each search starts where the first match began, so that the match grows instead of
/// moving on.
void HelpWindow::beginFind() {
  QTextCursor cursor = page_->textCursor();
  cursor.setPosition(cursor.selectionStart());
  page_->setTextCursor(cursor);
  find(false);
}

void HelpWindow::find(bool backward) {
  findResult_->clear();
  const QString text = findText_->text();
  if (text.isEmpty()) return;
  const auto direction = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  if (page_->find(text, direction)) return;
  const QTextCursor before = page_->textCursor();
  page_->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
  if (page_->find(text, direction)) return;
  page_->setTextCursor(before);
  findResult_->setText("Not found");
}

}  // namespace tovak::ui
