// The widgets against the records: the layout in proportion to the twips,
// texts that fit in whatever font the machine has, frames, visible focus and
// tab order, and how a change travels between a record and its widget.

#include "qt/form_mirror.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionButton>

#include "qt/control_widgets.h"
#include "window_fixture.h"

namespace korvane {
namespace {

// CTest runs these a second time with DejaVu Sans as the only face, wider
// than the ones the windows were drawn in.
bool wideFontRun() {
  return qEnvironmentVariableIsSet("KORVANE_WIDE_FONT");
}

class FormMirrorTest : public testing::QtWindowTest {
 protected:
  void SetUp() override { start(); }
  std::vector<Form*> forms() { return {&frm, &program.AdvancedSettings()}; }
  QScrollBar* bar() { return mainWidget<QScrollBar>("vscrlColorKey0"); }
  void openColorKeyGroup() {
    frm.Frame2.SetEnabled(true);
    frm.chkAddColorKey.SetEnabled(true);
    frm.chkAddColorKey.SetValue(1);
  }
};

TEST_F(FormMirrorTest, LayoutIsTheTwipsTableAtOneScaleInsideTheClientArea) {
  for (Form* form : forms()) {
    QWidget& window = platform.windowWidget(*form);
    const QSize designed(std::lround(form->Definition().clientWidth / 15.0),
                         std::lround(form->Definition().clientHeight / 15.0));
    if (wideFontRun()) {
      EXPECT_GE(window.width(), designed.width() + (form == &frm))
          << form->Name() << " grows for the wider font";
    } else {
      EXPECT_EQ(window.size(), designed) << form->Name() << " at 15 twips a pixel";
    }
    const double perTwip = double(window.width()) / form->Definition().clientWidth;
    EXPECT_NEAR(window.height(), form->Definition().clientHeight * perTwip, 1);
    for (const Control* control : form->Controls()) {
      QWidget* widget = platform.controlWidget(*form, control->Name());
      if (widget == nullptr) continue;
      const ControlDefinition& d = control->Definition();
      EXPECT_EQ(widget->parentWidget()->objectName().toStdString(),
                d.container.empty() ? form->Name() : d.container);
      QRectF expected(d.left * perTwip, d.top * perTwip, d.width * perTwip, d.height * perTwip);
      if (d.container.empty() && d.kind != ControlKind::Frame) {
        EXPECT_TRUE(window.rect().contains(widget->geometry())) << d.name << " reaches past the client area";
        expected &= QRectF(window.rect());
      }
      const QRectF shown(widget->geometry());
      const double off = std::max(
          {std::abs(shown.left() - expected.left()), std::abs(shown.top() - expected.top()),
           std::abs(shown.right() - expected.right()), std::abs(shown.bottom() - expected.bottom())});
      EXPECT_LE(off, 1.5) << d.name;
    }
  }
}

// The ink of each caption, and of the widest text a ColorKey or AutoLOD field
// takes, within the room the style leaves it: nothing is cut.
TEST_F(FormMirrorTest, EveryTextFitsItsControl) {
  for (Form* form : forms()) {
    for (const Control* control : form->Controls()) {
      QWidget* widget = platform.controlWidget(*form, control->Name());
      if (widget == nullptr) continue;
      QString text = QString::fromStdString(control->Definition().caption).remove(QLatin1Char('&'));
      QRect room = widget->rect();
      if (auto* box = qobject_cast<QCheckBox*>(widget)) {
        QStyleOptionButton option;
        option.initFrom(box);
        room = box->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, box);
      } else if (auto* button = qobject_cast<QPushButton*>(widget)) {
        QStyleOptionButton option;
        option.initFrom(button);
        room = button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button);
      } else if (auto* frame = qobject_cast<ClassicFrame*>(widget)) {
        room = widget->rect().adjusted(frame->captionRect().left(), 0, -frame->captionRect().left(), 0);
      } else if (auto* label = qobject_cast<QLabel*>(widget)) {
        room = label->contentsRect();
      } else if (control->Kind() == ControlKind::MaskedEdit) {
        text = QString(static_cast<const MaskedEdit*>(control)->Settings().maxLength, QLatin1Char('0'));
        room = widget->rect().adjusted(4, 0, -5, 0);  // the field's frame and margins, and the caret
      }
      if (text.isEmpty()) continue;
      const QFontMetrics metrics = widget->fontMetrics();
      EXPECT_LE(metrics.tightBoundingRect(text).right() + 1, room.width())
          << control->Name() << " cuts off \"" << text.toStdString() << "\" in "
          << QFontInfo(widget->font()).family().toStdString();
      EXPECT_LE(metrics.height(), room.height()) << control->Name();
    }
  }
}

// What lies in a frame, its own children and a control laid over it, keeps
// clear of the line and the caption drawn there.
TEST_F(FormMirrorTest, NoControlCrossesTheLineOfItsFrame) {
  for (Form* form : forms()) {
    QWidget& window = platform.windowWidget(*form);
    for (auto* frame : window.findChildren<ClassicFrame*>()) {
      const QPoint origin = frame->mapTo(&window, QPoint());
      const QRect line = frame->borderRect().translated(origin);
      const int width = ClassicFrame::kLineWidth;
      const QImage drawn = frame->grab().toImage();
      const QPoint onLine(frame->width() - 3 * width, frame->borderRect().top());
      EXPECT_EQ(drawn.pixelColor(onLine).rgb(), frame->palette().color(QPalette::Mid).rgb())
          << frame->objectName().toStdString() << " draws its line where it says";
      for (const Control* control : form->Controls()) {
        QWidget* widget = platform.controlWidget(*form, control->Name());
        if (widget == nullptr || widget == frame) continue;
        const QRect place(widget->mapTo(&window, QPoint()), widget->size());
        if (!place.intersects(line)) continue;
        EXPECT_TRUE(line.adjusted(width, width, -width, -width).contains(place)) << control->Name();
        EXPECT_FALSE(place.intersects(frame->captionRect().translated(origin))) << control->Name();
      }
    }
  }
}

// Tab visits the controls by rising tab index, and each shows that it has the focus.
TEST_F(FormMirrorTest, TabWalksByTabIndexAndTheFocusShows) {
  openLOD0(dir.write("a.kob", testing::source("wood.tga")));
  frm.chkAddColorKey.SetValue(1);
  const std::vector<std::string> expected{
      "txtFilePathLOD0", "txtTextureMap",  "btnBrowseTextureMap", "btnSaveAs",      "btnViewHelp",
      "btnExit",         "mskColorKey0",   "mskColorKey1",        "mskColorKey2",   "vscrlColorKey0",
      "vscrlColorKey1",  "vscrlColorKey2", "chkAddLOD1",          "chkAddColorKey", "sldColorKey0",
      "sldColorKey1",    "sldColorKey2",   "btnBrowseLOD0"};
  mainWidget("btnBrowseLOD0")->setFocus();
  std::map<std::string, QImage> focused;
  for (const std::string& name : expected) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget()->objectName().toStdString(), name);
    focused[name] = QApplication::focusWidget()->grab().toImage();
  }
  for (const auto& [name, image] : focused) {
    if (name == "btnBrowseLOD0") continue;  // it has the focus again
    EXPECT_NE(mainWidget(name)->grab().toImage(), image) << name << " shows no focus";
  }
}

TEST_F(FormMirrorTest, TextureMapFieldLiesInFrontOfTheDataFrameAndFollowsOnlyItsOwnFlag) {
  auto* field = mainWidget("txtTextureMap");
  EXPECT_EQ(platform.windowWidget(frm).childAt(field->geometry().center()), field);
  frm.txtTextureMap.SetEnabled(true);
  EXPECT_TRUE(field->isEnabled()) << "Frame2 is still disabled";
  frm.Frame2.SetEnabled(true);
  frm.txtTextureMap.SetEnabled(false);
  EXPECT_FALSE(field->isEnabled());
}

TEST_F(FormMirrorTest, RecordChangeRunsItsHandlerOnceAndNeverEchoes) {
  int fieldRuns = 0;
  auto handler = frm.mskColorKey0.onChange;
  frm.mskColorKey0.onChange = [&] { ++fieldRuns, handler(); };
  QSignalSpy edited(mainWidget<QLineEdit>("mskColorKey0"), &QLineEdit::textEdited);
  QSignalSpy moved(bar(), &QScrollBar::valueChanged);
  frm.mskColorKey0.SetText("200");
  EXPECT_EQ(fieldRuns, 1);
  EXPECT_EQ(edited.count() + moved.count(), 0);
  EXPECT_EQ(bar()->value(), 255 - 200) << "255 stands at the top";
  EXPECT_EQ(mainWidget<QLabel>("lblShowColor")->palette().color(QPalette::Window), QColor(200, 128, 128));
}

TEST_F(FormMirrorTest, AuthorsBarCheckBoxAndFieldInput) {
  openColorKeyGroup();
  QTest::keyClick(bar(), Qt::Key_Up);
  EXPECT_EQ(frm.mskColorKey0.Text(), "129") << "the up arrow raises";
  auto* box = mainWidget<QCheckBox>("chkAddColorKey");
  frm.chkAddColorKey.SetValue(2);
  EXPECT_EQ(box->checkState(), Qt::PartiallyChecked);
  click(box);
  EXPECT_EQ(frm.chkAddColorKey.Value(), 0) << "a click only checks and clears";
  click(box);
  EXPECT_EQ(box->checkState(), Qt::Checked);
  auto* field = mainWidget<QLineEdit>("mskColorKey1");
  typeOver(field, "1a-2.34");
  EXPECT_EQ(field->text(), "123");
  typeOver(field, "5");
  QTest::keyClick(field, Qt::Key_Home);
  QTest::keyClicks(field, "12");
  EXPECT_EQ(frm.mskColorKey1.Text(), "125");
  EXPECT_EQ(field->cursorPosition(), 2) << "the caret stays where the author put it";
  typeOver(field, "999");
  EXPECT_EQ(field->text(), "255");
}

TEST_F(FormMirrorTest, AutoLodFieldShowsItsFormatOnlyWithoutTheFocus) {
  auto& settings = program.AdvancedSettings();
  settings.mskAutoLOD0.SetText(".5");
  auto* field = settingsWidget<QLineEdit>("mskAutoLOD0");
  EXPECT_EQ(field->text(), "0.500");
  whileModal([&] {
    click(field);
    EXPECT_EQ(field->text(), ".5");
    QTest::keyClicks(field, "123456789");
    EXPECT_EQ(field->text(), ".51234") << "six characters at most";
    click(settingsWidget("OKButton"));
  });
  frm.btnAdvancedSettings.Click();
  EXPECT_EQ(settings.mskAutoLOD0.Text(), "0.512");
  EXPECT_EQ(field->text(), "0.512");
}

}  // namespace
}  // namespace korvane
