/// The main window in a test: what it starts with, and what a person does to it.
#pragma once

#include <QComboBox>
#include <QMimeData>
#include <QStatusBar>
#include <QWindow>
#include <memory>

#include "formats/delimited/built_in_formats.h"
#include "formats/format_tables.h"
#include "run/format_index.h"
#include "support/dialog_script.h"
#include "support/scripted_engine.h"
#include "support/temporary_folder.h"
#include "support/widgets.h"
#include "ui/tovak.h"

namespace tovak::ui {

class MainWindow : public testing::Test {
 protected:
  MainWindow() {
    engine.systems = {{0, "Latitude and Longitude, NAD83~0"},
                      {1, "Transverse, NAD83~1"},
                      {4, "State plane South, NAD83~4"},
                      {107, "State plane South, NAD27~107"}};
    start.engine = &engine;
    start.formatTables = formats::formatTables();
    start.delimitedFormats = {formats::delimited::standardFormat()};
    start.version = "1.2.3";
    start.workingFolder = folder.path();
  }

  frmTovak& open() {
    window = std::make_unique<frmTovak>(start);
    window->show();
    return *window;
  }
  void presetFiles(std::string_view points) {
    start.settings.sourceFormat = run::source::CommaDelimited;
    start.settings.targetFormat = run::target::CommaDelimited;
    start.settings.SourceProjectionCode = start.settings.TargetProjectionCode = 4;
    start.settings.source.fileName = folder.write("in.csv", points);
    start.settings.target.fileName = folder.file("out.csv");
  }

  template <typename Widget>
  Widget& widget(const char* name) {
    return tests::control<Widget>(*window, name);
  }
  void click(const char* name) { tests::press(*window, name); }
  void choose(const char* list, int index) { tests::choose(*window, list, index); }
  void type(const char* name, const char* text) { tests::type(widget<QLineEdit>(name), text); }
  void trigger(const char* action) { widget<QAction>(action).trigger(); }
  bool checked(const char* name) { return widget<QAbstractButton>(name).isChecked(); }
  bool enabled(const char* name) { return widget<QObject>(name).property("enabled").toBool(); }
  bool visible(const char* name) { return widget<QWidget>(name).isVisible(); }
  int chosen(const char* list) { return widget<QComboBox>(list).currentIndex(); }
  std::string text(const char* name) { return widget<QWidget>(name).property("text").toString().toStdString(); }
  std::string status() { return window->statusBar()->currentMessage().toStdString(); }

  /// As a file manager does: the window finds out what lies under the pointer.
  void drop(const char* name, const std::string& file) {
    drop(name, QList<QUrl>{QUrl::fromLocalFile(QString::fromStdString(file))});
  }
  void drop(const char* name, const QList<QUrl>& addresses) {
    QMimeData data;
    data.setUrls(addresses);
    const auto& box = widget<QWidget>(name);
    const QPoint place = box.mapTo(window.get(), box.rect().center());
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window->windowHandle(), &enter);
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window->windowHandle(), &drop);
    QApplication::processEvents();
  }

  const tests::TemporaryFolder folder;
  tests::ScriptedEngine engine;
  app::WindowStart start;
  std::unique_ptr<frmTovak> window;
  tests::DialogScript dialogs;
};

}  // namespace tovak::ui
