#pragma once
// A running Korvane on the real Qt windows, offscreen, with the author's side
// of the dialogs scripted, and the helpers that act as the author through
// QTest on the widgets found by the controls' names.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <string>

#include "advanced/advanced_settings_window.h"
#include "mainwindow/main_window.h"
#include "qt/qt_platform.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/temp_files.h"

namespace korvane::testing {

// The real platform, but message boxes are recorded, file dialogs take queued
// answers, documents are not opened and no event loop is left (none runs).
class ScriptedQtPlatform : public QtPlatform {
 public:
  using QtPlatform::QtPlatform;
  std::vector<std::string> messages;
  std::vector<std::string> dialogTitles;
  std::deque<std::optional<std::string>> answers;  // nullopt: cancel
  int eventLoopQuits = 0;

  void messageBox(const std::string& prompt, const std::string&) override { messages.push_back(prompt); }
  std::optional<std::string> fileDialog(const FileDialogRequest& request) override {
    dialogTitles.push_back(request.title);
    if (answers.empty()) ADD_FAILURE() << "a file dialog with no answer queued: " << request.title;
    if (answers.empty()) return std::nullopt;
    auto answer = answers.front();
    answers.pop_front();
    return answer;
  }
  bool openDocument(const std::string&) override { return true; }

 protected:
  void quitEventLoop() override { ++eventLoopQuits; }
};

class QtWindowTest : public ::testing::Test {
 protected:
  QtWindowTest() { AppTitleName = "Korvane"; }

  // Main, as the program starts it, with the main window made active.
  void start() {
    platform.runEntryPoint("Main", [this] { program.Main(); });
    ASSERT_TRUE(activate(platform.windowWidget(frm)));
  }
  // A dialog counts as active for QWindow while its owner is: this waits for the window itself.
  static bool activate(QWidget& window) {
    window.activateWindow();
    return QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; });
  }

  template <class W = QWidget>
  W* widgetOf(Form& form, const std::string& name) {
    W* widget = qobject_cast<W*>(platform.controlWidget(form, name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  template <class W = QWidget>
  W* mainWidget(const std::string& name) {
    return widgetOf<W>(frm, name);
  }
  template <class W = QWidget>
  W* settingsWidget(const std::string& name) {
    return widgetOf<W>(program.AdvancedSettings(), name);
  }

  static void click(QWidget* widget) {
    QTest::mouseClick(widget, Qt::LeftButton, {}, widget->rect().center());
  }
  // Clicks into a field, selects what it holds and types over it key by key.
  static void typeOver(QWidget* field, const QString& text) {
    click(field);
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, text);
  }

  // Runs act as soon as the next modal window is up and active; one left
  // open is hidden after a while, so a fault fails instead of hanging.
  void whileModal(std::function<void()> act) {
    QTimer::singleShot(0, [act] {
      QWidget* modal = QApplication::activeModalWidget();
      EXPECT_TRUE(modal && activate(*modal)) << "no active modal window";
      act();
    });
    QTimer::singleShot(5000, [] {
      if (QWidget* modal = QApplication::activeModalWidget()) {
        ADD_FAILURE() << "the modal window " << modal->objectName().toStdString() << " was left open";
        modal->hide();
      }
    });
  }

  void openLOD0(const std::string& path) {
    platform.answers.push_back(path);
    click(mainWidget("btnBrowseLOD0"));
  }

  TempDir dir;
  ScriptedQtPlatform platform{QString::fromStdString(dir.file("store.ini"))};
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
};

inline std::string source(const std::string& textureMap) {
  return crlf({"[Material - 0]", "TextureMap=" + textureMap, "[LOD Information]", "NumberOfLOD=1", "[LOD 0]",
               "NumberOfSurfaces=1"});
}

}  // namespace korvane::testing
