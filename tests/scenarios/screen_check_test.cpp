// The screen check against the real mirror: each property caught when a
// widget is made to show something else than its record. (The scenarios find
// any disagreement where there is none.)

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

using ScreenCheck = korvane::testing::QtWindowTest;

TEST_F(ScreenCheck, AWidgetShowingSomethingElseIsCaught) {
  start();
  const struct {
    std::string name;
    std::function<void(QWidget&)> tamper;
    std::string caught;
  } cases[] = {
      {"btnSaveAs", [](QWidget& w) { w.setEnabled(true); }, "Enabled=1"},
      {"chkAddLOD1", [](QWidget& w) { static_cast<QCheckBox&>(w).setCheckState(Qt::PartiallyChecked); },
       "Value=2"},
      // The bar's widget counts from its top, where 255 stands.
      {"vscrlColorKey0", [](QWidget& w) { static_cast<QScrollBar&>(w).setValue(0); }, "Value=255"},
      {"sldColorKey2", [](QWidget& w) { static_cast<QSlider&>(w).setValue(3); }, "Value=3"},
      {"txtTextureMap", [](QWidget& w) { static_cast<QLineEdit&>(w).setText("stale.tga"); },
       "Text=stale.tga"},
      {"lblLODnum", [](QWidget& w) { static_cast<QLabel&>(w).setText("2"); }, "Caption=2"},
      {"lblShowColor", [](QWidget& w) { w.setPalette(QPalette(QColor(1, 2, 3))); }, "BackColor=1,2,3"},
  };
  for (const auto& c : cases) {
    QWidget* widget = mainWidget(c.name);
    {
      const QSignalBlocker blocker(widget);
      c.tamper(*widget);
    }
    Control& control = *frm.FindControl(c.name);
    std::string caught;
    for (const Disagreement& found : compareWithScreen(control, *widget, printedProperties(control)))
      caught += (caught.empty() ? "" : " ") + found.property + "=" + found.screen;
    EXPECT_EQ(caught, c.caught) << c.name;
  }
}

}  // namespace
}  // namespace korvane::scenario
