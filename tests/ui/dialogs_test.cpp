#include <QRadioButton>
#include <QTreeWidget>
#include <algorithm>
#include <map>
#include <vector>

#include "ui/main_window.h"
#include "ui/system_list.h"
#include "ui/tovak_com_del.h"
#include "ui/tovak_def_pt_no.h"
#include "ui/tovak_delorme.h"
#include "ui/tovak_input.h"
#include "ui/tovak_maptech.h"
#include "ui/tovak_output.h"
#include "ui/tovak_project.h"
#include "ui/tovak_wpt_txt.h"

namespace tovak::ui {
namespace {

/// What the main window and every dialog owe to a person.
class EveryDialog : public MainWindow {
 protected:
  EveryDialog() {
    dialogs_.push_back(std::make_unique<frmTovakInput>(EntryLabels{.latLong = true}));
    dialogs_.push_back(std::make_unique<frmTovakInput>(EntryLabels{.latLong = false}));
    dialogs_.push_back(std::make_unique<frmTovakOutput>(settings_));
    dialogs_.push_back(std::make_unique<frmTovakDefPtNo>(settings_));
    dialogs_.push_back(std::make_unique<frmTovakWptTxt>(settings_));
    dialogs_.push_back(std::make_unique<frmTovakMaptech>(settings_));
    dialogs_.push_back(std::make_unique<frmTovakDelorme>(settings_));
    dialogs_.push_back(std::make_unique<frmTovakAbout>());
    dialogs_.push_back(
        std::make_unique<frmTovakComDel>(formats_, formats::delimited::EditorPurpose::Utility, settings_, ""));
  }

  /// With the main window.
  std::vector<QWidget*> windows() {
    std::vector<QWidget*> all = {&open()};
    for (const auto& dialog : dialogs_) all.push_back(dialog.get());
    return all;
  }

  run::RunSettings settings_;
  formats::delimited::DefinedFormats formats_ = {.table = {{}}};
  std::vector<std::unique_ptr<QDialog>> dialogs_;
};

/// The controls of a dialog that a person works with; not the parts that Qt makes them of.
std::vector<QWidget*> controlsOf(const QWidget& dialog) {
  std::vector<QWidget*> controls;
  for (QWidget* const widget : dialog.findChildren<QWidget*>()) {
    const bool own = !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_") &&
                     !widget->parentWidget()->inherits("QTabBar");
    if (own && !widget->inherits("QMenuBar") && widget->focusPolicy() != Qt::NoFocus) controls.push_back(widget);
  }
  return controls;
}

TEST_F(EveryDialog, ExplainsEachControl) {
  for (const QWidget* const dialog : windows()) {
    for (const QWidget* const control : controlsOf(*dialog)) {
      EXPECT_FALSE(control->toolTip().isEmpty()) << control->objectName().toStdString();
    }
  }
}

TEST_F(EveryDialog, GivesEachKeyToOneControl) {
  for (const QWidget* const dialog : windows()) {
    std::map<QString, QString> owners;
    for (const QWidget* const widget : dialog->findChildren<QWidget*>()) {
      const QKeySequence key =
          QKeySequence::mnemonic(widget->property(widget->inherits("QMenu") ? "title" : "text").toString());
      if (key.isEmpty() || widget->inherits("QLineEdit")) continue;
      const auto [owner, first] = owners.emplace(key.toString(), widget->objectName());
      EXPECT_TRUE(first) << key.toString().toStdString() << " of " << widget->objectName().toStdString()
                         << " belongs to " << owner->second.toStdString();
    }
  }
}

TEST_F(EveryDialog, IsReachedByTabInTheOrderOfTheEye) {
  for (const auto& dialog : dialogs_) {
    SCOPED_TRACE(dialog->objectName().toStdString());
    dialog->show();
    std::vector<QWidget*> controls = controlsOf(*dialog);
    // The options of a group are one stop; the arrow keys go from one to the other.
    std::erase_if(controls, [](const QWidget* control) {
      const auto* const option = qobject_cast<const QRadioButton*>(control);
      return option != nullptr && !option->isChecked();
    });
    // From one control to the next the eye goes down inside a group, or on to the right.
    const QWidget* before = nullptr;
    std::size_t reached = 0;
    for (QWidget* at = dialog->nextInFocusChain(); at != dialog.get(); at = at->nextInFocusChain()) {
      if (std::find(controls.begin(), controls.end(), at) == controls.end() || !(at->focusPolicy() & Qt::TabFocus))
        continue;
      ++reached;
      const QPoint place = at->mapTo(dialog.get(), QPoint(0, 0));
      if (before != nullptr) {
        const QPoint last = before->mapTo(dialog.get(), QPoint(0, 0));
        EXPECT_TRUE(place.y() > last.y() || place.x() > last.x())
            << before->objectName().toStdString() << " comes before " << at->objectName().toStdString();
      }
      before = at;
    }
    EXPECT_EQ(reached, controls.size());
  }
}

TEST_F(EveryDialog, HasItsSectionOfTheHelp) {
  const std::map<QString, QString> sections = {{"frmTovakInput", "Keyboard"},
                                               {"frmTovakOutput", "Screen only"},
                                               {"frmTovakDefPtNo", "Point numbers"},
                                               {"frmTovakWptTxt", "Trimble Waypoints File"},
                                               {"frmTovakMaptech", "Maptech Export File (*.MXF)"},
                                               {"frmTovakDelorme", "DeLorme Import File"},
                                               {"frmTovakAbout", "First steps"},
                                               {"frmTovakComDel", "Delimited formats"},
                                               {"frmTovakProject", "The user-defined project"},
                                               {"frmTovakSystems", "Projections and units"}};
  dialogs_.push_back(std::make_unique<frmTovakProject>(engine));
  dialogs_.push_back(std::make_unique<frmTovakSystems>(engine, std::int16_t{0}, "", nullptr));
  for (const auto& dialog : dialogs_) {
    dialog->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    QTest::keyClick(dialog.get(), Qt::Key_F1);
    const auto* const help = dialog->findChild<QWidget*>("HelpWindow");
    ASSERT_TRUE(help != nullptr && help->isVisible());
    const QTreeWidgetItem* const topic = tests::control<QTreeWidget>(*help, "contents").currentItem();
    EXPECT_EQ(topic == nullptr ? "" : topic->text(0), sections.at(dialog->objectName()));
    dialog->close();
  }
}

}  // namespace
}  // namespace tovak::ui
