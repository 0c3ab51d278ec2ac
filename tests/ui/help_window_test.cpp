#include "ui/help_window.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <gtest/gtest.h>

#include "support/temporary_folder.h"
#include "support/widgets.h"

namespace {

using tovak::tests::control;
using tovak::ui::HelpWindow;

/// The window with the program's own help, open.
class HelpWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    window_.resize(900, 500);
    QString problem;
    ASSERT_TRUE(window_.open(&problem)) << problem.toStdString();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  }

  /// The text of the line at the top of the page.
  QString lineAtTop() const { return page_->cursorForPosition({0, 4}).block().text(); }

  HelpWindow window_{TOVAK_HELP_FILE};
  QTextBrowser* const page_ = &control<QTextBrowser>(window_, "page");
  QTreeWidget* const contents_ = &control<QTreeWidget>(window_, "contents");
  QLineEdit* const findText_ = &control<QLineEdit>(window_, "findText");
  QLabel* const findResult_ = &control<QLabel>(window_, "findResult");
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
  tovak::tests::press(window_, "findPrevious");
  EXPECT_EQ(page_->textCursor().position(), first.position());

  // Round the ends of the page.
  findText_->selectAll();
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
