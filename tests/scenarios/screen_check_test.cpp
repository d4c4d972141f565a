// The screen check against the real mirror: what agrees after start, and
// each property caught when a widget is made to show something else.

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

  // Makes the widget show something its record does not say.
  template <class W, class Change>
  void tamper(const std::string& name, Change change) {
    W* widget = mainWidget<W>(name);
    const QSignalBlocker blocker(widget);
    change(*widget);
  }

  static void expectOne(const std::vector<Disagreement>& found, const std::string& property,
                        const std::string& screen) {
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].property, property);
    EXPECT_EQ(found[0].screen, screen);
  }
};

TEST_F(ScreenCheck, EveryControlAgreesWithItsWidgetAfterStart) {
  for (Control* control : frm.Controls()) {
    if (platform.controlWidget(frm, control->Name()) == nullptr) continue;
    EXPECT_TRUE(check(*control).empty()) << control->Name();
  }
}

TEST_F(ScreenCheck, EnabledIsTheWidgetsOwnFlagSoAClosedFrameIsNoDisagreement) {
  frm.mskColorKey0.SetEnabled(true);
  ASSERT_FALSE(platform.controlWidget(frm, "mskColorKey0")->isEnabled());
  EXPECT_TRUE(check(frm.mskColorKey0).empty());
  tamper<QWidget>("btnSaveAs", [](QWidget& w) { w.setEnabled(true); });
  expectOne(check(frm.btnSaveAs), "Enabled", "1");
}

TEST_F(ScreenCheck, ValuesOfCheckBoxScrollBarAndSlider) {
  tamper<QCheckBox>("chkAddLOD1", [](QCheckBox& w) { w.setCheckState(Qt::PartiallyChecked); });
  expectOne(check(frm.chkAddLOD1), "Value", "2");
  // The bar's widget counts from its top, where 255 stands.
  tamper<QScrollBar>("vscrlColorKey0", [](QScrollBar& w) { w.setValue(0); });
  expectOne(check(frm.vscrlColorKey0), "Value", "255");
  tamper<QSlider>("sldColorKey2", [](QSlider& w) { w.setValue(3); });
  expectOne(check(frm.sldColorKey2), "Value", "3");
}

TEST_F(ScreenCheck, TextsCaptionsAndTheSwatch) {
  tamper<QLineEdit>("txtTextureMap", [](QLineEdit& w) { w.setText("stale.tga"); });
  expectOne(check(frm.txtTextureMap), "Text", "stale.tga");
  tamper<QLabel>("lblLODnum", [](QLabel& w) { w.setText("2"); });
  expectOne(check(frm.lblLODnum), "Caption", "2");
  tamper<QLabel>("lblShowColor", [](QLabel& w) {
    QPalette palette = w.palette();
    palette.setColor(QPalette::Window, QColor(1, 2, 3));
    w.setPalette(palette);
  });
  expectOne(check(frm.lblShowColor), "BackColor", "1,2,3");
}

TEST_F(ScreenCheck, AFieldWithADisplayFormatShowsItsTextFormattedWithoutTheFocus) {
  frmAdvancedSettings& settings = program.AdvancedSettings();
  settings.mskAutoLOD0.SetText("0.25");
  auto* field = qobject_cast<QLineEdit*>(platform.controlWidget(settings, "mskAutoLOD0"));
  ASSERT_NE(field, nullptr);
  const std::vector<Property> printed = printedProperties(settings.mskAutoLOD0);
  EXPECT_TRUE(compareWithScreen(settings.mskAutoLOD0, *field, printed).empty())
      << field->text().toStdString();
  {
    const QSignalBlocker blocker(field);
    field->setText("0.25");
  }
  expectOne(compareWithScreen(settings.mskAutoLOD0, *field, printed), "Text", "0.25");
}

TEST_F(ScreenCheck, AWindowOnScreenThatItsRecordCallsHidden) {
  frmAdvancedSettings& settings = program.AdvancedSettings();
  QWidget& window = platform.windowWidget(settings);
  const std::vector<Property> printed = windowProperties(true, settings.Visible());
  EXPECT_TRUE(compareWindowWithScreen(window, printed).empty());
  window.show();
  expectOne(compareWindowWithScreen(window, printed), "Visible", "1");
  window.hide();
}

}  // namespace
}  // namespace korvane::scenario
