/// The window that shows the help file.
#pragma once

#include <QString>
#include <QWidget>

class QBoxLayout;
class QKeySequence;
class QLabel;
class QLineEdit;
class QTextBrowser;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace tovak::ui {

/// One HTML file with its table of contents beside it: the level 2 headings, and under them the level 3 headings that
/// have an anchor. All colours come from the palette, including those of examples and tables.
///
/// Ctrl+F finds text on the page, F3 and Shift+F3 find it again, Alt+Left goes back, Ctrl with +, - and 0 sets the size
/// of the text, Escape closes.
class HelpWindow : public QWidget {
 public:
  explicit HelpWindow(const QString& helpFile, QWidget* parent = nullptr);

  /// Reads the file and shows the window at its contents. False when that fails: then no window appears, and `problem`,
  /// unless it is null, receives a text with the file's name and the reason.
  bool open(QString* problem);

  /// Goes to the section that begins with the anchor.
  void showTopic(const QString& anchor);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void makeToolBar(QBoxLayout& row);
  QToolButton* addButton(QBoxLayout& row, const char* name, const QString& text, const QString& tip);
  void makePages(QBoxLayout& column);
  void makeShortcuts();
  void fillContents();
  void followPalette();
  void selectTopic(const QString& anchor);
  void selectTopicInView();
  void zoom(int steps);
  void beginFind();
  /// Searches for the text in the find line from the cursor onwards, then from the other end of the page.
  void find(bool backward);

  QString helpFile_;
  QTreeWidget* contents_ = nullptr;
  QTextBrowser* page_ = nullptr;
  QLineEdit* findText_ = nullptr;
  QLabel* findResult_ = nullptr;
  int zoomSteps_ = 0;
};

}  // namespace tovak::ui
