#pragma once
// A running Korvane on the real Qt windows, offscreen, with the author's side
// of the dialogs scripted, and helpers that act as the author through QTest.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <deque>

#include "qt/qt_platform.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/temp_files.h"

namespace korvane::testing {

// The real platform, but message boxes are recorded, file dialogs take queued
// answers and no event loop is left.
class ScriptedQtPlatform : public QtPlatform {
 public:
  using QtPlatform::QtPlatform;
  std::vector<std::string> messages;
  std::deque<std::string> answers;
  int eventLoopQuits = 0;

  void messageBox(const std::string& prompt, const std::string&) override { messages.push_back(prompt); }
  std::optional<std::string> fileDialog(const FileDialogRequest& request) override {
    if (answers.empty()) ADD_FAILURE() << "a file dialog with no answer queued: " << request.title;
    if (answers.empty()) return std::nullopt;
    std::string answer = answers.front();
    answers.pop_front();
    return answer;
  }

 protected:
  void quitEventLoop() override { ++eventLoopQuits; }
};

class QtWindowTest : public ::testing::Test {
 protected:
  QtWindowTest() { AppTitleName = "Korvane"; }

  void start() {
    platform.runEntryPoint("Main", [this] { program.Main(); });
    QWidget& window = platform.windowWidget(frm);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }));
  }
  template <class W = QWidget>
  W* mainWidget(const std::string& name) {
    W* widget = qobject_cast<W*>(platform.controlWidget(frm, name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  static void click(QWidget* widget) {
    QTest::mouseClick(widget, Qt::LeftButton, {}, widget->rect().center());
  }
  void openLOD0(const std::string& textureMap) {
    platform.answers.push_back(
        dir.write("a.kob", crlf({"[Material - 0]", "TextureMap=" + textureMap, "[LOD Information]",
                                 "NumberOfLOD=1", "[LOD 0]", "NumberOfSurfaces=1"})));
    click(mainWidget("btnBrowseLOD0"));
  }
  std::string saveAs() {
    platform.answers.push_back(dir.file("out.kob"));
    click(mainWidget("btnSaveAs"));
    return readBytes(dir.file("out.kob"));
  }

  TempDir dir;
  ScriptedQtPlatform platform{QString::fromStdString(dir.file("store.ini"))};
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
};

}  // namespace korvane::testing
