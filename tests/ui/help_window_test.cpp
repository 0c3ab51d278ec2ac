#include "ui/help_window.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace {

using tovak::ui::HelpWindow;

/// The window with the program's own help, open.
class HelpWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    window_.resize(900, 500);
    QString problem;
    ASSERT_TRUE(window_.open(&problem)) << problem.toStdString();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
    page_ = window_.findChild<QTextBrowser*>("page");
    contents_ = window_.findChild<QTreeWidget*>("contents");
    findText_ = window_.findChild<QLineEdit*>("findText");
    findResult_ = window_.findChild<QLabel*>("findResult");
    ASSERT_TRUE(page_ && contents_ && findText_ && findResult_);
  }

  QTreeWidgetItem* entry(const QString& title) {
    const auto found = contents_->findItems(title, Qt::MatchExactly | Qt::MatchRecursive);
    return found.isEmpty() ? nullptr : found.last();
  }

  /// The text of the line at the top of the page.
  QString lineAtTop() const { return page_->cursorForPosition({0, 4}).block().text(); }

  void click(const char* button) { window_.findChild<QToolButton*>(button)->click(); }

  HelpWindow window_{TOVAK_HELP_FILE};
  QTextBrowser* page_ = nullptr;
  QTreeWidget* contents_ = nullptr;
  QLineEdit* findText_ = nullptr;
  QLabel* findResult_ = nullptr;
};

}  // namespace

TEST_F(HelpWindowTest, ContentsHaveEveryHeadingAndLeadThere) {
  int entries = 0;
  for (QTreeWidgetItemIterator item(contents_); *item != nullptr; ++item) {
    ++entries;
    contents_->setCurrentItem(*item);
    EXPECT_EQ(contents_->currentItem(), *item);
    // The last sections cannot come to the top of the page.
    QScrollBar* const bar = page_->verticalScrollBar();
    if (bar->value() == bar->maximum()) continue;
    EXPECT_EQ(lineAtTop().simplified(), (*item)->text(0));
  }
  EXPECT_GT(entries, 40);
}

TEST_F(HelpWindowTest, GoesBackForwardAndToTheTop) {
  contents_->setCurrentItem(entry("Precision"));
  const int precision = page_->verticalScrollBar()->value();
  contents_->setCurrentItem(entry("Command line"));
  click("back");
  EXPECT_EQ(page_->verticalScrollBar()->value(), precision);
  EXPECT_EQ(contents_->currentItem()->text(0), "Precision");
  click("forward");
  EXPECT_EQ(contents_->currentItem()->text(0), "Command line");
  QTest::keyClick(page_, Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(contents_->currentItem()->text(0), "Precision");
  click("top");
  EXPECT_EQ(page_->verticalScrollBar()->value(), 0);
}

TEST_F(HelpWindowTest, ContentsFollowTheReader) {
  page_->verticalScrollBar()->setValue(0);
  EXPECT_EQ(contents_->currentItem(), nullptr);
  page_->verticalScrollBar()->setValue(page_->verticalScrollBar()->maximum() / 2);
  ASSERT_NE(contents_->currentItem(), nullptr);
  EXPECT_NE(contents_->currentItem()->text(0), "First steps");
}

TEST_F(HelpWindowTest, FindsTextOnThePage) {
  QTest::keyClick(page_, Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(window_.focusWidget(), findText_);
  QTest::keyClicks(findText_, "Tovak");
  // What is typed letter by letter is found where it comes first.
  const QTextCursor first = page_->document()->find("Tovak");
  EXPECT_EQ(page_->textCursor().selectionStart(), first.selectionStart());
  EXPECT_EQ(page_->textCursor().selectedText(), "Tovak");

  QTest::keyClick(findText_, Qt::Key_Return);
  const int second = page_->textCursor().position();
  EXPECT_GT(second, first.position());
  QTest::keyClick(findText_, Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(page_->textCursor().position(), first.position());
  QTest::keyClick(findText_, Qt::Key_F3);
  EXPECT_EQ(page_->textCursor().position(), second);
  click("findPrevious");
  EXPECT_EQ(page_->textCursor().position(), first.position());
}

TEST_F(HelpWindowTest, FindsRoundTheEndsOfThePageAndSaysWhenThereIsNothing) {
  findText_->setFocus();
  QTest::keyClicks(findText_, "XDG_DATA_HOME");
  const int only = page_->textCursor().position();
  QTest::keyClick(findText_, Qt::Key_F3);
  EXPECT_EQ(page_->textCursor().position(), only);
  QTest::keyClick(findText_, Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(page_->textCursor().position(), only);
  EXPECT_EQ(findResult_->text(), "");

  QTest::keyClicks(findText_, "nowhere");
  EXPECT_EQ(findResult_->text(), "Not found");
  findText_->selectAll();
  QTest::keyClicks(findText_, "metres");
  EXPECT_EQ(findResult_->text(), "");
}

TEST_F(HelpWindowTest, ChangesTheSizeOfTheText) {
  const double size = page_->document()->defaultFont().pointSizeF();
  QTest::keyClick(page_, Qt::Key_Plus, Qt::ControlModifier);
  click("larger");
  EXPECT_GT(page_->document()->defaultFont().pointSizeF(), size + 1);
  QTest::keyClick(page_, Qt::Key_Minus, Qt::ControlModifier);
  QTest::keyClick(page_, Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(page_->document()->defaultFont().pointSizeF(), size);
  for (int i = 0; i < 50; ++i) click("smaller");
  EXPECT_GT(page_->document()->defaultFont().pointSizeF(), 2);
}

TEST_F(HelpWindowTest, EscapeCloses) {
  findText_->setFocus();
  QTest::keyClick(findText_, Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
  EXPECT_TRUE(window_.open(nullptr));
  EXPECT_TRUE(window_.isVisible());
}

TEST_F(HelpWindowTest, KeepsItsPlaceAndStaysReadableWhenThePaletteChanges) {
  contents_->setCurrentItem(entry("Projections and units"));
  const int place = page_->verticalScrollBar()->value();
  const QPalette before = QApplication::palette();
  QPalette dark(QColor(60, 60, 64), QColor(45, 45, 48));
  dark.setColor(QPalette::AlternateBase, QColor(52, 52, 56));
  QApplication::setPalette(dark);
  QCoreApplication::processEvents();
  EXPECT_NEAR(page_->verticalScrollBar()->value(), place, 2);
  int examples = 0;
  for (QTextBlock block = page_->document()->begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().background().style() == Qt::NoBrush) continue;
    ++examples;
    EXPECT_EQ(block.blockFormat().background().color(), dark.color(QPalette::AlternateBase));
  }
  QApplication::setPalette(before);
  EXPECT_GT(examples, 20);
}

TEST_F(HelpWindowTest, EveryControlHasATipAndCanBeReachedByKeyboard) {
  for (const QToolButton* button : window_.findChildren<QToolButton*>(QString(), Qt::FindDirectChildrenOnly)) {
    EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
    EXPECT_TRUE(button->focusPolicy() & Qt::TabFocus) << button->objectName().toStdString();
  }
  EXPECT_FALSE(findText_->toolTip().isEmpty() || contents_->toolTip().isEmpty());
}

TEST(HelpWindowWithoutHelp, SaysWhatIsWrongAndShowsNothing) {
  const tovak::tests::TemporaryFolder folder;
  const QString missing = QString::fromStdString(folder.file("missing.hlp"));
  const QString empty = QString::fromStdString(folder.write("empty.hlp", ""));
  const QString other = QString::fromStdString(folder.write("other.hlp", "<p>no headings</p>"));
  const struct {
    QString file;
    QString words;
  } kCases[] = {{missing, "cannot be opened"},
                {QString::fromStdString(folder.path().string()), "cannot be opened"},
                {empty, "holds no help"},
                {other, "holds no help"}};
  for (const auto& each : kCases) {
    SCOPED_TRACE(each.file.toStdString());
    HelpWindow window(each.file);
    QString problem;
    EXPECT_FALSE(window.open(&problem));
    EXPECT_FALSE(window.open(nullptr));
    EXPECT_TRUE(problem.contains(each.words) && problem.contains(each.file)) << problem.toStdString();
    EXPECT_FALSE(window.isVisible());
  }
}
