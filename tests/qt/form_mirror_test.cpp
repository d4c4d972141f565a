// The widgets against the records: names, places, texts, first state, tab
// order, and how a change travels between a record and its widget.

#include "qt/form_mirror.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionSlider>
#include <cmath>
#include <set>

#include "window_fixture.h"

namespace korvane {
namespace {

using testing::QtWindowTest;

class FormMirrorTest : public QtWindowTest {
 protected:
  void SetUp() override { start(); }

  // Opens the ColorKey group to the author without loading a source.
  void openColorKeyGroup() {
    frm.Frame2.SetEnabled(true);
    frm.chkAddColorKey.SetEnabled(true);
    frm.chkAddColorKey.SetValue(1);
  }

  static QString shownText(QWidget* widget) {
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) return button->text();
    if (auto* label = qobject_cast<QLabel*>(widget)) return label->text();
    if (auto* frame = qobject_cast<QGroupBox*>(widget)) return frame->title();
    return {};
  }

  // Every control of a window that is ever on screen, against its record.
  void expectMirrors(Form& form) {
    for (const Control* control : form.Controls()) {
      const ControlDefinition& d = control->Definition();
      QWidget* widget = platform.controlWidget(form, d.name);
      if (d.kind == ControlKind::List || d.kind == ControlKind::FileDialog) {
        EXPECT_EQ(widget, nullptr) << d.name << " is never on screen";
        continue;
      }
      ASSERT_NE(widget, nullptr) << d.name;
      EXPECT_EQ(widget->objectName().toStdString(), d.name);
      const QRect pixels(std::lround(d.left / 15.0), std::lround(d.top / 15.0), std::lround(d.width / 15.0),
                         std::lround(d.height / 15.0));
      EXPECT_EQ(widget->geometry(), pixels) << d.name;
      const std::string parent = d.container.empty() ? form.Name() : d.container;
      EXPECT_EQ(widget->parentWidget()->objectName().toStdString(), parent) << d.name;
      EXPECT_EQ(widget->toolTip().toStdString(), d.toolTip) << d.name;
      if (d.kind != ControlKind::TextBox && d.kind != ControlKind::MaskedEdit) {
        EXPECT_EQ(shownText(widget).toStdString(), d.caption) << d.name;
      }
      if (!d.font.family.empty()) {
        EXPECT_EQ(widget->font().family().toStdString(), d.font.family) << d.name;
        EXPECT_DOUBLE_EQ(widget->font().pointSizeF(), d.font.points) << d.name;
      }
    }
  }

  std::set<std::string> controlsTakingInput(Form& form) {
    std::set<std::string> names;
    for (Control* control : form.Controls()) {
      if (control->Kind() != ControlKind::List && control->Kind() != ControlKind::FileDialog &&
          platform.controlAcceptsInput(*control)) {
        names.insert(control->Name());
      }
    }
    return names;
  }

  // The names of the widgets that the Tab key visits, from the focus on.
  static std::vector<std::string> tabWalk(int steps) {
    std::vector<std::string> walk;
    for (int i = 0; i < steps; ++i) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      walk.push_back(QApplication::focusWidget()->objectName().toStdString());
    }
    return walk;
  }

  QScrollBar* bar(int channel) { return mainWidget<QScrollBar>("vscrlColorKey" + std::to_string(channel)); }

  // Presses one of the bar's arrows with the mouse, where the style draws it.
  static void clickArrow(QScrollBar* bar, QStyle::SubControl arrow) {
    QStyleOptionSlider option;
    option.initFrom(bar);
    option.orientation = Qt::Vertical;
    option.minimum = bar->minimum();
    option.maximum = bar->maximum();
    option.sliderPosition = bar->sliderPosition();
    option.sliderValue = bar->value();
    option.singleStep = bar->singleStep();
    option.pageStep = bar->pageStep();
    option.subControls = QStyle::SC_All;
    const QRect rect = bar->style()->subControlRect(QStyle::CC_ScrollBar, &option, arrow, bar);
    QTest::mousePress(bar, Qt::LeftButton, {}, rect.center());
    QTest::mouseRelease(bar, Qt::LeftButton, {}, rect.center());
  }
};

TEST_F(FormMirrorTest, MainWindowWidgetsMirrorTheirRecords) {
  expectMirrors(frm);
  QWidget& window = platform.windowWidget(frm);
  EXPECT_EQ(window.windowTitle(), "Korvane");
  EXPECT_EQ(window.size(), QSize(582, 309));
}

TEST_F(FormMirrorTest, SettingsWindowWidgetsMirrorTheirRecords) {
  expectMirrors(program.AdvancedSettings());
  QWidget& window = platform.windowWidget(program.AdvancedSettings());
  EXPECT_EQ(window.windowTitle(), "Advanced Settings");
  EXPECT_EQ(window.size(), QSize(209, 158));
}

// A caption wider than its control would be cut off on screen.
TEST_F(FormMirrorTest, EveryCaptionFitsItsControl) {
  for (Form* form : std::initializer_list<Form*>{&frm, &program.AdvancedSettings()}) {
    for (const Control* control : form->Controls()) {
      QWidget* widget = platform.controlWidget(*form, control->Name());
      if (widget == nullptr || control->Definition().caption.empty()) continue;
      QString caption = QString::fromStdString(control->Definition().caption);
      caption.remove(QLatin1Char('&'));
      // The ink of the text. Offscreen glyphs are not hinted and run up to two
      // pixels wider than on a screen, where "Number Of LOD:" just fits.
      constexpr int kUnhintedSlack = 2;
      const int needed = widget->fontMetrics().tightBoundingRect(caption).right() + 1 - kUnhintedSlack;
      int room = widget->width();
      if (auto* box = qobject_cast<QCheckBox*>(widget)) {
        QStyleOptionButton option;
        option.initFrom(box);
        room = box->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, box).width();
      }
      EXPECT_LE(needed, room) << control->Name() << " cuts off \"" << caption.toStdString() << "\" in "
                              << QFontInfo(widget->font()).family().toStdString();
    }
  }
}

TEST_F(FormMirrorTest, TextureMapFieldLiesOverTheDataFrameAndFollowsOnlyItsOwnFlag) {
  auto* field = mainWidget("txtTextureMap");
  auto* frame = mainWidget("Frame2");
  EXPECT_TRUE(frame->geometry().contains(field->geometry()));
  QWidget* window = &platform.windowWidget(frm);
  EXPECT_EQ(window->childAt(field->geometry().center()), field) << "the field is drawn in front of the frame";

  frm.txtTextureMap.SetEnabled(true);
  EXPECT_TRUE(field->isEnabled()) << "Frame2 is still disabled";
  frm.Frame2.SetEnabled(true);
  frm.txtTextureMap.SetEnabled(false);
  EXPECT_FALSE(field->isEnabled());
}

TEST_F(FormMirrorTest, FirstScreenTakesInputOnlyAtTheThreeButtons) {
  EXPECT_EQ(controlsTakingInput(frm), (std::set<std::string>{"btnBrowseLOD0", "btnViewHelp", "btnExit"}));
  EXPECT_EQ(QApplication::focusWidget(), mainWidget("btnBrowseLOD0"));
  for (const char* name : {"mskColorKey0", "mskColorKey1", "mskColorKey2"}) {
    EXPECT_EQ(mainWidget<QLineEdit>(name)->text(), "128") << name;
  }
  for (int channel = 0; channel < 3; ++channel) {
    EXPECT_EQ(bar(channel)->value(), 255 - 128);
    EXPECT_EQ(mainWidget<QSlider>("sldColorKey" + std::to_string(channel))->value(), 128);
  }
  auto* swatch = mainWidget<QLabel>("lblShowColor");
  EXPECT_TRUE(swatch->autoFillBackground());
  EXPECT_EQ(swatch->palette().color(QPalette::Window), QColor(128, 128, 128));
  EXPECT_EQ(mainWidget<QCheckBox>("chkAddColorKey")->checkState(), Qt::Unchecked);
  EXPECT_EQ(mainWidget<QCheckBox>("chkAddLOD1")->checkState(), Qt::Unchecked);
  EXPECT_EQ(mainWidget<QLabel>("lblLODnum")->frameShape(), QFrame::Box);
  EXPECT_EQ(mainWidget<QLabel>("lblShowColor")->frameShape(), QFrame::Box);
}

TEST_F(FormMirrorTest, TabWalksTheControlsByRisingTabIndex) {
  // First screen: only the three buttons can take the focus.
  EXPECT_EQ(tabWalk(3), (std::vector<std::string>{"btnViewHelp", "btnExit", "btnBrowseLOD0"}));

  openLOD0(dir.write("barrel.kob", testing::kBarrel));
  frm.chkAddColorKey.SetValue(1);
  mainWidget("btnBrowseLOD0")->setFocus();
  EXPECT_EQ(tabWalk(18),
            (std::vector<std::string>{"txtFilePathLOD0", "txtTextureMap", "btnBrowseTextureMap", "btnSaveAs",
                                      "btnViewHelp", "btnExit", "mskColorKey0", "mskColorKey1",
                                      "mskColorKey2", "vscrlColorKey0", "vscrlColorKey1", "vscrlColorKey2",
                                      "chkAddLOD1", "chkAddColorKey", "sldColorKey0", "sldColorKey1",
                                      "sldColorKey2", "btnBrowseLOD0"}));
}

TEST_F(FormMirrorTest, SettingsWindowTabOrderStartsAtOK) {
  auto& settings = program.AdvancedSettings();
  whileModal([&] {
    EXPECT_EQ(QApplication::focusWidget(), settingsWidget("OKButton"));
    EXPECT_EQ(tabWalk(4),
              (std::vector<std::string>{"btnUseDefault", "mskAutoLOD0", "mskAutoLOD1", "OKButton"}));
    click(settingsWidget("OKButton"));
  });
  frm.btnAdvancedSettings.Click();
  EXPECT_FALSE(platform.windowWidget(settings).isVisible());
}

TEST_F(FormMirrorTest, RecordChangeRunsItsHandlerOnceAndNeverEchoes) {
  int fieldRuns = 0;
  int barRuns = 0;
  auto field = frm.mskColorKey0.onChange;
  auto bar0 = frm.vscrlColorKey0.onChange;
  frm.mskColorKey0.onChange = [&] { ++fieldRuns, field(); };
  frm.vscrlColorKey0.onChange = [&] { ++barRuns, bar0(); };
  QSignalSpy edited(mainWidget<QLineEdit>("mskColorKey0"), &QLineEdit::textEdited);
  QSignalSpy moved(bar(0), &QScrollBar::valueChanged);

  frm.mskColorKey0.SetText("200");
  EXPECT_EQ(fieldRuns, 1);
  EXPECT_EQ(barRuns, 1);
  EXPECT_EQ(edited.count(), 0);
  EXPECT_EQ(moved.count(), 0);
  EXPECT_EQ(mainWidget<QLineEdit>("mskColorKey0")->text(), "200");
  EXPECT_EQ(bar(0)->value(), 255 - 200);
  EXPECT_EQ(mainWidget<QSlider>("sldColorKey0")->value(), 200);
  EXPECT_EQ(mainWidget<QLabel>("lblShowColor")->palette().color(QPalette::Window), QColor(200, 128, 128));
}

TEST_F(FormMirrorTest, CheckBoxShowsGrayedButAClickOnlyChecksAndClears) {
  openColorKeyGroup();
  auto* box = mainWidget<QCheckBox>("chkAddColorKey");
  frm.chkAddColorKey.SetValue(2);
  EXPECT_EQ(box->checkState(), Qt::PartiallyChecked);
  click(box);
  EXPECT_EQ(frm.chkAddColorKey.Value(), 0);
  EXPECT_EQ(box->checkState(), Qt::Unchecked);
  click(box);
  EXPECT_EQ(frm.chkAddColorKey.Value(), 1);
  EXPECT_EQ(box->checkState(), Qt::Checked);
  QTest::keyClick(box, Qt::Key_Space);
  EXPECT_EQ(frm.chkAddColorKey.Value(), 0);
}

TEST_F(FormMirrorTest, ScrollBarRunsFrom255AtTheTopAndTheUpArrowRaises) {
  openColorKeyGroup();
  clickArrow(bar(0), QStyle::SC_ScrollBarSubLine);
  EXPECT_EQ(frm.vscrlColorKey0.Value(), 129);
  EXPECT_EQ(frm.mskColorKey0.Text(), "129");
  clickArrow(bar(0), QStyle::SC_ScrollBarAddLine);
  clickArrow(bar(0), QStyle::SC_ScrollBarAddLine);
  EXPECT_EQ(frm.vscrlColorKey0.Value(), 127);
  QTest::keyClick(bar(0), Qt::Key_Up);
  EXPECT_EQ(frm.vscrlColorKey0.Value(), 128);

  bar(1)->setValue(bar(1)->minimum());  // the thumb dragged to the top
  EXPECT_EQ(frm.vscrlColorKey1.Value(), 255);
  bar(1)->setValue(bar(1)->maximum());  // and to the bottom
  EXPECT_EQ(frm.vscrlColorKey1.Value(), 0);
  clickArrow(bar(1), QStyle::SC_ScrollBarAddLine);
  EXPECT_EQ(frm.vscrlColorKey1.Value(), 0) << "the down arrow stops at 0";
}

TEST_F(FormMirrorTest, SliderRunsTo255InStepsOfOneAndFive) {
  openColorKeyGroup();
  auto* slider = mainWidget<QSlider>("sldColorKey2");
  EXPECT_EQ(slider->tickPosition(), QSlider::NoTicks);
  slider->setFocus();
  frm.mskColorKey2.SetText("100");
  QTest::keyClick(slider, Qt::Key_Right);
  EXPECT_EQ(frm.sldColorKey2.Value(), 101);
  EXPECT_EQ(frm.mskColorKey2.Text(), "101");
  QTest::keyClick(slider, Qt::Key_PageUp);
  EXPECT_EQ(frm.vscrlColorKey2.Value(), 106);
  QTest::keyClick(slider, Qt::Key_End);
  EXPECT_EQ(frm.mskColorKey2.Text(), "255");
}

TEST_F(FormMirrorTest, ColorKeyFieldTakesAtMostThreeDigits) {
  openColorKeyGroup();
  auto* field = mainWidget<QLineEdit>("mskColorKey1");
  typeOver(field, "1a-2.34");
  EXPECT_EQ(frm.mskColorKey1.Text(), "123");
  EXPECT_EQ(field->text(), "123");
  typeOver(field, "999");
  EXPECT_EQ(frm.mskColorKey1.Text(), "255");
  EXPECT_EQ(field->text(), "255");
}

TEST_F(FormMirrorTest, TypingKeepsTheCaretWhenTheHandlerWritesTheSameText) {
  openColorKeyGroup();
  auto* field = mainWidget<QLineEdit>("mskColorKey0");
  typeOver(field, "5");
  QTest::keyClick(field, Qt::Key_Home);
  QTest::keyClicks(field, "12");
  EXPECT_EQ(frm.mskColorKey0.Text(), "125");
  EXPECT_EQ(field->cursorPosition(), 2);
}

TEST_F(FormMirrorTest, AutoLodFieldShowsItsFormatOnlyWithoutTheFocus) {
  auto& settings = program.AdvancedSettings();
  settings.mskAutoLOD0.SetText(".5");
  settings.mskAutoLOD1.SetText("abc");
  auto* first = settingsWidget<QLineEdit>("mskAutoLOD0");
  EXPECT_EQ(first->text(), "0.500");
  EXPECT_EQ(settingsWidget<QLineEdit>("mskAutoLOD1")->text(), "abc");
  whileModal([&] {
    click(first);
    EXPECT_EQ(first->text(), ".5") << "the text as typed while the author edits it";
    EXPECT_EQ(settings.mskAutoLOD0.Text(), ".5");
    QTest::keyClicks(first, "123456789");
    EXPECT_EQ(first->text(), ".51234") << "six characters at most";
    click(settingsWidget("OKButton"));
  });
  frm.btnAdvancedSettings.Click();
  EXPECT_EQ(settings.mskAutoLOD0.Text(), "0.512");
  EXPECT_EQ(first->text(), "0.512");
}

}  // namespace
}  // namespace korvane
