// Keys that the windows handle themselves: Enter in a field of the main window
// clicks its default button, and an access key clicks only an enabled button,
// after the field that had the focus has been left.

#include "qt/main_window_view.h"

#include "window_fixture.h"

namespace korvane {
namespace {

class WindowKeys : public testing::QtWindowTest {};

TEST_F(WindowKeys, EnterInAFieldAndAccessKeys) {
  start();
  QTest::keyClick(&platform.windowWidget(frm), Qt::Key_S, Qt::AltModifier);
  QTest::qWait(300);
  EXPECT_TRUE(platform.dialogTitles.empty()) << "Save As is disabled on the first screen";
  openLOD0("wood.tga");
  platform.answers.push_back(std::nullopt);
  QTest::keyClick(mainWidget("txtTextureMap"), Qt::Key_Enter);
  EXPECT_EQ(platform.dialogTitles, (std::vector<std::string>(2, "Open KOB File (LOD 0)")));

  frmAdvancedSettings& settings = program.AdvancedSettings();
  frm.btnAdvancedSettings.SetEnabled(true);
  std::vector<std::string> ran;
  settings.btnUseDefault.onClick = [&, inner = settings.btnUseDefault.onClick] {
    ran.push_back("click"), inner();
  };
  settings.mskAutoLOD0.onLostFocus = [&, inner = settings.mskAutoLOD0.onLostFocus] {
    ran.push_back("left"), inner();
  };
  whileModal([&] {
    typeOver(widgetOf(settings, "mskAutoLOD0"), "3");
    QTest::keyClick(&platform.windowWidget(settings), Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ran.size() == 2; }, 2000));
    click(widgetOf(settings, "OKButton"));
  });
  click(mainWidget("btnAdvancedSettings"));
  EXPECT_EQ(ran, (std::vector<std::string>{"left", "click"}));
  EXPECT_EQ(settings.mskAutoLOD0.Text(), "0.250");
}

}  // namespace
}  // namespace korvane
