// The settings window as a window: owned and modal, no icon, Enter and Esc
// without effect, leaving a field before a button's click, the close box.

#include "qt/settings_window_view.h"

#include <QIcon>

#include "window_fixture.h"

namespace korvane {
namespace {

using testing::QtWindowTest;

class SettingsWindowViewTest : public QtWindowTest {
 protected:
  void SetUp() override {
    start();
    openLOD0(dir.write("tower.kob", testing::kTwoLods));
    // The order in which the handlers of the window run.
    auto wrap = [this](std::function<void()>& handler, std::string name) {
      handler = [this, inner = handler, name] {
        ran.push_back(name);
        inner();
      };
    };
    wrap(settings.mskAutoLOD0.onLostFocus, "mskAutoLOD0_LostFocus");
    wrap(settings.mskAutoLOD1.onLostFocus, "mskAutoLOD1_LostFocus");
    wrap(settings.OKButton.onClick, "OKButton_Click");
    wrap(settings.btnUseDefault.onClick, "btnUseDefault_Click");
  }

  QWidget& window() { return platform.windowWidget(settings); }
  // Opens the window as the author does; act plays the author inside it.
  void visit(std::function<void()> act) {
    whileModal(std::move(act));
    click(mainWidget("btnAdvancedSettings"));
  }

  frmAdvancedSettings& settings = program.AdvancedSettings();
  std::vector<std::string> ran;
};

TEST_F(SettingsWindowViewTest, IsAModalDialogOwnedByTheMainWindowWithoutIcon) {
  EXPECT_EQ(window().parentWidget(), &platform.windowWidget(frm));
  const Qt::WindowFlags flags = window().windowFlags();
  EXPECT_TRUE(flags & Qt::WindowCloseButtonHint);
  EXPECT_FALSE(flags & Qt::WindowMinimizeButtonHint);
  EXPECT_FALSE(flags & Qt::WindowMaximizeButtonHint);
  EXPECT_TRUE(window().windowIcon().isNull());
  EXPECT_EQ(window().minimumSize(), window().maximumSize());
  visit([&] {
    EXPECT_EQ(QApplication::activeModalWidget(), &window());
    EXPECT_EQ(window().windowModality(), Qt::ApplicationModal);
    click(settingsWidget("OKButton"));
  });
  EXPECT_FALSE(window().isVisible());
  EXPECT_EQ(ran, (std::vector<std::string>{"OKButton_Click"}));
}

TEST_F(SettingsWindowViewTest, EnterAndEscapeInAFieldDoNothing) {
  visit([&] {
    QWidget* field = settingsWidget("mskAutoLOD1");
    click(field);
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) QTest::keyClick(field, key);
    EXPECT_TRUE(window().isVisible());
    QTest::keyClick(&window(), Qt::Key_Escape);
    EXPECT_TRUE(window().isVisible());
    EXPECT_TRUE(ran.empty());
    click(settingsWidget("OKButton"));
  });
  EXPECT_EQ(ran, (std::vector<std::string>{"mskAutoLOD1_LostFocus", "OKButton_Click"}));
}

TEST_F(SettingsWindowViewTest, ValueLeftByAClickOnOKIsNormalisedFirst) {
  visit([&] {
    typeOver(settingsWidget("mskAutoLOD0"), "0.2506");
    click(settingsWidget("OKButton"));
  });
  EXPECT_EQ(ran, (std::vector<std::string>{"mskAutoLOD0_LostFocus", "OKButton_Click"}));
  EXPECT_EQ(settings.mskAutoLOD0.Text(), "0.251");
  EXPECT_EQ(settings.mskAutoLOD1.Text(), "0.125");
}

TEST_F(SettingsWindowViewTest, ValueLeftByAClickOnUseDefaultGivesWayToTheDefaults) {
  visit([&] {
    typeOver(settingsWidget("mskAutoLOD1"), "7");
    click(settingsWidget("btnUseDefault"));
    EXPECT_TRUE(window().isVisible()) << "Use Default keeps the window open";
    EXPECT_EQ(settingsWidget<QLineEdit>("mskAutoLOD0")->text(), "0.250");
    EXPECT_EQ(settingsWidget<QLineEdit>("mskAutoLOD1")->text(), "0.000");
    click(settingsWidget("OKButton"));
  });
  EXPECT_EQ(ran,
            (std::vector<std::string>{"mskAutoLOD1_LostFocus", "btnUseDefault_Click", "OKButton_Click"}));
  EXPECT_EQ(settings.mskAutoLOD1.Text(), "0.000");
}

TEST_F(SettingsWindowViewTest, AccessKeyOfUseDefaultLeavesTheFieldFirst) {
  visit([&] {
    typeOver(settingsWidget("mskAutoLOD0"), "3");
    QTest::keyClick(&window(), Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ran.size() == 2; }, 2000));
    click(settingsWidget("OKButton"));
  });
  EXPECT_EQ(ran,
            (std::vector<std::string>{"mskAutoLOD0_LostFocus", "btnUseDefault_Click", "OKButton_Click"}));
  EXPECT_EQ(settings.mskAutoLOD0.Text(), "0.250");
}

TEST_F(SettingsWindowViewTest, CloseBoxHidesLikeOKAndTheValuesStay) {
  visit([&] {
    typeOver(settingsWidget("mskAutoLOD0"), "0.75");
    click(settingsWidget("btnUseDefault"));
    typeOver(settingsWidget("mskAutoLOD1"), "0.5");
    click(settingsWidget("mskAutoLOD0"));
    window().close();
  });
  EXPECT_FALSE(window().isVisible());
  EXPECT_FALSE(platform.ended());
  EXPECT_EQ(settings.mskAutoLOD0.Text(), "0.250");
  EXPECT_EQ(settings.mskAutoLOD1.Text(), "0.500");

  visit([&] {
    EXPECT_EQ(settingsWidget<QLineEdit>("mskAutoLOD1")->text(), "0.500")
        << "the same texts on the next visit";
    click(settingsWidget("OKButton"));
  });
}

}  // namespace
}  // namespace korvane
