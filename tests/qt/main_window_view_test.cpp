// The main window as a window: its frame and icon, Enter and Esc, access
// keys, every way of closing it, a failure no handler dealt with, and one
// whole job of an author done with the mouse and the keyboard.

#include "qt/main_window_view.h"

#include <QCheckBox>
#include <QIcon>
#include <QLabel>
#include <QScrollBar>
#include <QSlider>

#include "runtime/failure.h"
#include "window_fixture.h"

namespace korvane {
namespace {

using testing::crlf;
using testing::QtWindowTest;
using testing::readBytes;

class MainWindowViewTest : public QtWindowTest {
 protected:
  void SetUp() override { start(); }

  QWidget& window() { return platform.windowWidget(frm); }
  std::size_t dialogsAsked() const { return platform.dialogRequests.size(); }
  std::string lastDialogTitle() const {
    return platform.dialogRequests.empty() ? "" : platform.dialogRequests.back().title;
  }
  // Waits for what an access key starts: Qt presses the button for a moment first.
  static bool waitFor(const std::function<bool()>& done) { return QTest::qWaitFor(done, 2000); }
};

TEST_F(MainWindowViewTest, IsAFixedWindowWithACloseBoxAndTheIconInTwoSizes) {
  const Qt::WindowFlags flags = window().windowFlags();
  EXPECT_TRUE(flags & Qt::WindowCloseButtonHint);
  EXPECT_TRUE(flags & Qt::WindowSystemMenuHint);
  EXPECT_FALSE(flags & Qt::WindowMinimizeButtonHint);
  EXPECT_FALSE(flags & Qt::WindowMaximizeButtonHint);
  EXPECT_EQ(window().minimumSize(), window().maximumSize());
  EXPECT_EQ(window().parentWidget(), nullptr) << "a window of its own, with a task-bar entry";
  const QList<QSize> sizes = window().windowIcon().availableSizes();
  EXPECT_TRUE(sizes.contains(QSize(32, 32)));
  EXPECT_TRUE(sizes.contains(QSize(16, 16)));
}

TEST_F(MainWindowViewTest, EnterClicksBrowseLOD0UnlessAnotherButtonHasTheFocus) {
  platform.cancel();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(lastDialogTitle(), "Open KOB File (LOD 0)");

  openLOD0(dir.write("barrel.kob", testing::kBarrel));
  const std::size_t before = dialogsAsked();
  for (const char* focus : {"txtTextureMap", "txtFilePathLOD0", "chkAddLOD1", "chkAddColorKey"}) {
    mainWidget(focus)->setFocus();
    platform.cancel();
    QTest::keyClick(mainWidget(focus), Qt::Key_Enter);
    EXPECT_EQ(lastDialogTitle(), "Open KOB File (LOD 0)") << "Enter in " << focus;
  }
  EXPECT_EQ(dialogsAsked(), before + 4);

  mainWidget("btnViewHelp")->setFocus();
  QTest::keyClick(mainWidget("btnViewHelp"), Qt::Key_Return);
  EXPECT_EQ(dialogsAsked(), before + 4) << "the focused button takes Enter itself";
  EXPECT_EQ(platform.openedDocuments.size(), 1u);
}

TEST_F(MainWindowViewTest, EscapeDoesNothing) {
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_TRUE(window().isVisible());
  EXPECT_TRUE(platform.dialogRequests.empty());
  EXPECT_FALSE(platform.ended());
}

TEST_F(MainWindowViewTest, AccessKeysClickOnlyEnabledButtons) {
  QTest::keyClick(&window(), Qt::Key_S, Qt::AltModifier);
  QTest::qWait(300);
  EXPECT_TRUE(platform.dialogRequests.empty()) << "Save As is disabled on the first screen";

  platform.cancel();
  QTest::keyClick(&window(), Qt::Key_B, Qt::AltModifier);
  EXPECT_TRUE(waitFor([&] { return dialogsAsked() == 1; }));
  EXPECT_EQ(lastDialogTitle(), "Open KOB File (LOD 0)");
}

TEST_F(MainWindowViewTest, CloseBoxEndsTheProgramWithoutAQuestion) {
  openLOD0(dir.write("barrel.kob", testing::kBarrel));
  window().close();
  EXPECT_TRUE(platform.ended());
  EXPECT_GE(platform.eventLoopQuits, 1);
  EXPECT_FALSE(window().isVisible());
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(MainWindowViewTest, ExitButtonEndsTheProgramAndClosesTheSettingsWindow) {
  QWidget& settings = platform.windowWidget(program.AdvancedSettings());
  click(mainWidget("btnExit"));
  EXPECT_TRUE(platform.ended());
  EXPECT_FALSE(window().isVisible());
  EXPECT_FALSE(settings.isVisible());
  click(mainWidget("btnViewHelp"));
  EXPECT_TRUE(platform.openedDocuments.empty()) << "no handler runs after the end";
}

TEST_F(MainWindowViewTest, HelpThatCannotBeOpenedSaysSo) {
  platform.openSucceeds = false;
  click(mainWidget("btnViewHelp"));
  click(mainWidget("btnViewHelp"));
  EXPECT_EQ(platform.messages,
            (std::vector<std::string>{"Error launching help file.", "Error launching help file."}));
  EXPECT_EQ(platform.messageTitles.front(), "Korvane");
}

TEST_F(MainWindowViewTest, FailureThatNoHandlerDealtWithIsShownAndTheProgramGoesOn) {
  frm.btnViewHelp.onClick = [] { throw RuntimeFailure(failure_number::FileNotFound); };
  click(mainWidget("btnViewHelp"));
  EXPECT_EQ(platform.messages,
            (std::vector<std::string>{"Unexpected error in btnViewHelp_Click: File not found ( 53)"}));
  EXPECT_FALSE(platform.ended());
  platform.cancel();
  click(mainWidget("btnBrowseLOD0"));
  EXPECT_EQ(dialogsAsked(), 1u);
}

TEST_F(MainWindowViewTest, WhileTheSettingsWindowIsOpenTheMainWindowTakesNoInput) {
  openLOD0(dir.write("tower.kob", testing::kTwoLods));
  whileModal([&] {
    EXPECT_FALSE(platform.controlAcceptsInput(frm.btnExit));
    EXPECT_FALSE(platform.controlAcceptsInput(frm.btnBrowseLOD0));
    EXPECT_TRUE(platform.controlAcceptsInput(program.AdvancedSettings().OKButton));
    click(settingsWidget("OKButton"));
  });
  click(mainWidget("btnAdvancedSettings"));
  EXPECT_TRUE(platform.controlAcceptsInput(frm.btnExit));
}

TEST_F(MainWindowViewTest, TwoLodSourceShowsGrayedBoxAndItsValues) {
  openLOD0(dir.write("tower.kob", testing::kTwoLods));
  EXPECT_EQ(mainWidget<QCheckBox>("chkAddLOD1")->checkState(), Qt::PartiallyChecked);
  EXPECT_FALSE(mainWidget("chkAddLOD1")->isEnabled());
  EXPECT_EQ(mainWidget<QLabel>("lblLODnum")->text(), "2");
  EXPECT_EQ(mainWidget<QLineEdit>("txtTextureMap")->text(), "tower.tga");
  EXPECT_EQ(mainWidget<QLabel>("lblShowColor")->palette().color(QPalette::Window), QColor(255, 0, 64));
  EXPECT_EQ(settingsWidget<QLineEdit>("mskAutoLOD0")->text(), "0.500");
  EXPECT_EQ(settingsWidget<QLineEdit>("mskAutoLOD1")->text(), "0.125");
  EXPECT_TRUE(platform.controlAcceptsInput(frm.btnAdvancedSettings));
}

TEST_F(MainWindowViewTest, AuthorsWholeJobWithMouseAndKeys) {
  const std::string source = dir.write("barrel.kob", testing::kBarrel);
  const std::string low = dir.write("barrel_low.kob", testing::kBarrelLow);
  const std::string output = dir.file("barrel_merged.kob");

  platform.answer(source);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(mainWidget<QLineEdit>("txtFilePathLOD0")->text().toStdString(), source);
  EXPECT_EQ(mainWidget<QLineEdit>("txtTextureMap")->text(), "barrel_old.tga");
  EXPECT_EQ(mainWidget<QLabel>("lblLODnum")->text(), "1");

  typeOver(mainWidget("txtTextureMap"), "wood.tga");
  click(mainWidget("chkAddColorKey"));
  typeOver(mainWidget("mskColorKey0"), "255");
  auto* slider = mainWidget<QSlider>("sldColorKey1");
  slider->setFocus();
  QTest::keyClick(slider, Qt::Key_Right);
  QTest::keyClick(slider, Qt::Key_Right);
  auto* bar = mainWidget<QScrollBar>("vscrlColorKey2");
  bar->setFocus();
  QTest::keyClick(bar, Qt::Key_Down);
  EXPECT_EQ(mainWidget<QLineEdit>("mskColorKey1")->text(), "130");
  EXPECT_EQ(mainWidget<QLineEdit>("mskColorKey2")->text(), "127");

  platform.answer(low);
  click(mainWidget("chkAddLOD1"));
  EXPECT_EQ(mainWidget<QCheckBox>("chkAddLOD1")->checkState(), Qt::Checked);
  EXPECT_EQ(mainWidget<QLineEdit>("txtFilePathLOD1")->text().toStdString(), low);

  whileModal([&] {
    typeOver(settingsWidget("mskAutoLOD0"), "0.3");
    QTest::keyClick(settingsWidget("mskAutoLOD0"), Qt::Key_Tab);
    QTest::keyClick(settingsWidget("mskAutoLOD1"), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(settingsWidget("mskAutoLOD1"), ".1");
    click(settingsWidget("OKButton"));
  });
  click(mainWidget("btnAdvancedSettings"));
  ASSERT_TRUE(activate(window()));

  platform.answer(output);
  QTest::keyClick(&window(), Qt::Key_S, Qt::AltModifier);
  ASSERT_TRUE(waitFor([&] { return !readBytes(output).empty(); }));
  EXPECT_EQ(readBytes(output),
            crlf({"[Object]", "Name=Barrel", "[Material - 0]", "TextureMap=wood.tga", "ColorKey=255,130,127",
                  "Shininess=0.5", "[LOD Information]", "NumberOfLOD=2", "UseAutoLOD=T", "AutoLOD#0=0.300",
                  "AutoLOD#1=0.100", "[LOD 0]", "NumberOfSurfaces=2", "Surface0=0 1 2", "Surface1=2 3 0",
                  "[LOD 1]", "NumberOfSurfaces=1", "Surface0=0 1 2"}));
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(platform.dialogRequests.back().title, "Save KOB File As...");
  EXPECT_TRUE(platform.dialogRequests.back().saveMode);

  // The remembered directory lasts in the store file for the next start.
  testing::ScriptedQtPlatform next(QString::fromStdString(dir.file("store.ini")));
  EXPECT_EQ(next.readUserValue("Software\\Korvane", "DefaultDir"), dir.path().string());
}

}  // namespace
}  // namespace korvane
