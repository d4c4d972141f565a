// The settings window's keys and close box: leaving a field runs its
// LostFocus before the button's click, Enter and Esc do nothing, and the
// close box hides the window like OK with the values kept.

#include "qt/settings_window_view.h"

#include <QLineEdit>

#include "window_fixture.h"

namespace korvane {
namespace {

class SettingsWindowViewTest : public testing::QtWindowTest {
 protected:
  void SetUp() override {
    start();
    frm.btnAdvancedSettings.SetEnabled(true);
    settings.mskAutoLOD1.SetText("0.125");
    for (auto* button : {&settings.OKButton, &settings.btnUseDefault}) {
      button->onClick = [this, button, inner = button->onClick] { ran.push_back(button->Name()), inner(); };
    }
    settings.mskAutoLOD0.onLostFocus = [this, inner = settings.mskAutoLOD0.onLostFocus] {
      ran.push_back("LostFocus"), inner();
    };
  }
  QWidget& window() { return platform.windowWidget(settings); }
  void visit(std::function<void()> act) {
    whileModal(std::move(act));
    click(mainWidget("btnAdvancedSettings"));
  }
  frmAdvancedSettings& settings = program.AdvancedSettings();
  std::vector<std::string> ran;
};

TEST_F(SettingsWindowViewTest, AccessKeyOfUseDefaultLeavesTheFieldFirstAndEnterAndEscDoNothing) {
  visit([&] {
    typeOver(settingsWidget("mskAutoLOD0"), "3");
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
      QTest::keyClick(settingsWidget("mskAutoLOD0"), key);
    EXPECT_TRUE(window().isVisible());
    EXPECT_TRUE(ran.empty());
    QTest::keyClick(&window(), Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ran.size() == 2; }, 2000));
    click(settingsWidget("OKButton"));
  });
  EXPECT_EQ(ran, (std::vector<std::string>{"LostFocus", "btnUseDefault", "OKButton"}));
  EXPECT_EQ(settings.mskAutoLOD0.Text(), "0.250");
}

TEST_F(SettingsWindowViewTest, CloseBoxHidesLikeOKAndTheValuesStay) {
  visit([&] {
    typeOver(settingsWidget("mskAutoLOD0"), "0.75");
    QTest::keyClick(settingsWidget("mskAutoLOD0"), Qt::Key_Tab);
    window().close();
  });
  EXPECT_FALSE(window().isVisible());
  EXPECT_FALSE(platform.ended());
  EXPECT_EQ(settings.mskAutoLOD0.Text(), "0.750");
  visit([&] {
    EXPECT_EQ(settingsWidget<QLineEdit>("mskAutoLOD1")->text(), "0.125");
    click(settingsWidget("OKButton"));
  });
}

}  // namespace
}  // namespace korvane
