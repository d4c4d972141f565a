// The main window's keys: Enter clicks the default button unless a button has
// the focus, Esc does nothing, and an access key clicks only an enabled button.

#include "qt/main_window_view.h"

#include "window_fixture.h"

namespace korvane {
namespace {

class MainWindowViewTest : public testing::QtWindowTest {
 protected:
  void SetUp() override { start(); }
  std::size_t dialogs() const { return platform.dialogTitles.size(); }
};

TEST_F(MainWindowViewTest, EnterClicksBrowseLOD0UnlessAButtonHasTheFocus) {
  openLOD0(dir.write("a.kob", testing::source("wood.tga")));
  for (const char* focus : {"txtTextureMap", "chkAddLOD1", "btnBrowseLOD0"}) {
    mainWidget(focus)->setFocus();
    platform.answers.push_back(std::nullopt);
    QTest::keyClick(mainWidget(focus), Qt::Key_Enter);
    EXPECT_EQ(platform.dialogTitles.back(), "Open KOB File (LOD 0)") << focus;
  }
  EXPECT_EQ(dialogs(), 4u);
  QTest::keyClick(mainWidget("btnViewHelp"), Qt::Key_Return);
  QTest::keyClick(mainWidget("btnViewHelp"), Qt::Key_Escape);
  EXPECT_EQ(dialogs(), 4u);
  EXPECT_TRUE(platform.windowWidget(frm).isVisible());
}

TEST_F(MainWindowViewTest, AccessKeyClicksOnlyAnEnabledButton) {
  QTest::keyClick(&platform.windowWidget(frm), Qt::Key_S, Qt::AltModifier);
  QTest::qWait(300);
  EXPECT_EQ(dialogs(), 0u) << "Save As is disabled on the first screen";
  platform.answers.push_back(std::nullopt);
  QTest::keyClick(&platform.windowWidget(frm), Qt::Key_B, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return dialogs() == 1; }, 2000));
}

}  // namespace
}  // namespace korvane
