// The print forms, and the screen check against the real mirror: each
// property caught when a widget is made to show something else than its
// record. (The scenarios find any disagreement where there is none.)

#include "scenario/screen_check.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSlider>

#include "qt/window_fixture.h"

namespace korvane::scenario {
namespace {

class ScreenCheck : public korvane::testing::QtWindowTest {
 protected:
  void SetUp() override { start(); }

  std::vector<Disagreement> check(Control& control) {
    return compareWithScreen(control, *platform.controlWidget(control.Parent(), control.Name()),
                             printedProperties(control));
  }

  static void expectOne(const std::vector<Disagreement>& found, const std::string& property,
                        const std::string& screen) {
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].property, property);
    EXPECT_EQ(found[0].screen, screen);
  }
};

TEST_F(ScreenCheck, AWidgetShowingSomethingElseIsCaught) {
  const struct {
    std::string name;
    std::function<void(QWidget&)> tamper;
    std::string property, screen;
  } cases[] = {
      {"btnSaveAs", [](QWidget& w) { w.setEnabled(true); }, "Enabled", "1"},
      {"chkAddLOD1", [](QWidget& w) { static_cast<QCheckBox&>(w).setCheckState(Qt::PartiallyChecked); },
       "Value", "2"},
      // The bar's widget counts from its top, where 255 stands.
      {"vscrlColorKey0", [](QWidget& w) { static_cast<QScrollBar&>(w).setValue(0); }, "Value", "255"},
      {"sldColorKey2", [](QWidget& w) { static_cast<QSlider&>(w).setValue(3); }, "Value", "3"},
      {"txtTextureMap", [](QWidget& w) { static_cast<QLineEdit&>(w).setText("stale.tga"); }, "Text",
       "stale.tga"},
      {"lblLODnum", [](QWidget& w) { static_cast<QLabel&>(w).setText("2"); }, "Caption", "2"},
      {"lblShowColor",
       [](QWidget& w) {
         QPalette palette = w.palette();
         palette.setColor(QPalette::Window, QColor(1, 2, 3));
         w.setPalette(palette);
       },
       "BackColor", "1,2,3"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    QWidget* widget = mainWidget(c.name);
    {
      const QSignalBlocker blocker(widget);
      c.tamper(*widget);
    }
    expectOne(check(*frm.FindControl(c.name)), c.property, c.screen);
  }
}

TEST_F(ScreenCheck, PrintedEnabledIsTheControlsOwnFlagAndTextsAreEscaped) {
  frm.txtTextureMap.SetText("a\tb\\");
  EXPECT_EQ(printLine("txtTextureMap", printedProperties(frm.txtTextureMap)),
            "txtTextureMap Text=a\\tb\\\\ Enabled=0");
  frm.mskColorKey0.SetEnabled(true);
  ASSERT_FALSE(platform.controlWidget(frm, "mskColorKey0")->isEnabled());
  EXPECT_EQ(printLine("mskColorKey0", printedProperties(frm.mskColorKey0)),
            "mskColorKey0 Text=128 Enabled=1");
  EXPECT_TRUE(check(frm.mskColorKey0).empty());
}

}  // namespace
}  // namespace korvane::scenario
