#pragma once
// A running Korvane on the real Qt windows, offscreen, with the author's side
// of the dialogs scripted, and the helpers that act as the author: clicks,
// keys and typing through QTest on the widgets found by the controls' names.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>

#include "advanced/advanced_settings_window.h"
#include "mainwindow/main_window.h"
#include "runtime/shared_strings.h"
#include "scripted_qt_platform.h"
#include "shell/program.h"
#include "support/temp_files.h"

namespace korvane::testing {

class QtWindowTest : public ::testing::Test {
 protected:
  QtWindowTest() { AppTitleName = "Korvane"; }

  // Main, as the program starts it, with the main window made active.
  void start() {
    platform.runEntryPoint("Main", [this] { program.Main(); });
    ASSERT_TRUE(activate(platform.windowWidget(frm)));
  }

  // Makes the window the active one, as the author's click on it would. (A
  // dialog counts as active for QWindow while its owner is: this waits for
  // the window itself.)
  static bool activate(QWidget& window) {
    window.activateWindow();
    return QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; });
  }

  template <class W = QWidget>
  W* mainWidget(const std::string& name) {
    W* widget = qobject_cast<W*>(platform.controlWidget(frm, name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  template <class W = QWidget>
  W* settingsWidget(const std::string& name) {
    W* widget = qobject_cast<W*>(platform.controlWidget(program.AdvancedSettings(), name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
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

  // Runs act as soon as the next modal window is up and active. A window
  // that act leaves on screen is hidden after a while, so a fault shows as a
  // failure and not as a test that never ends.
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
    platform.answer(path);
    click(mainWidget("btnBrowseLOD0"));
  }

  TempDir dir;
  ScriptedQtPlatform platform{QString::fromStdString(dir.file("store.ini"))};
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
};

// Sources for the tests: one LOD with no ColorKey, its low model, and one with two LODs.
inline const std::string kBarrel =
    crlf({"[Object]", "Name=Barrel", "[Material - 0]", "TextureMap=barrel_old.tga", "Shininess=0.5",
          "[LOD Information]", "NumberOfLOD=1", "[LOD 0]", "NumberOfSurfaces=2", "Surface0=0 1 2",
          "Surface1=2 3 0"});
inline const std::string kBarrelLow =
    crlf({"[Material - 0]", "TextureMap=barrel_low.tga", "[LOD Information]", "NumberOfLOD=1", "[LOD 0]",
          "NumberOfSurfaces=1", "Surface0=0 1 2"});
inline const std::string kTwoLods =
    crlf({"[Material - 0]", "TextureMap=tower.tga", "ColorKey=255,0,64", "[LOD Information]", "NumberOfLOD=2",
          "UseAutoLOD=T", "AutoLOD#0=0.5", "AutoLOD#1=0.125", "[LOD 0]", "NumberOfSurfaces=1", "[LOD 1]",
          "NumberOfSurfaces=1"});

}  // namespace korvane::testing
