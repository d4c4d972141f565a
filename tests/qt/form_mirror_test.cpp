// The widgets against the records: the layout in proportion to the twips,
// texts that fit in whatever font the machine has (CTest runs these again with
// a wider face), frames, and visible focus.

#include "qt/form_mirror.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>

#include "qt/control_widgets.h"
#include "window_fixture.h"

namespace korvane {
namespace {

class FormMirrorTest : public testing::QtWindowTest {
 protected:
  void SetUp() override { start(); }
  // Every control on screen of both windows, with its window and widget.
  void forEachWidget(const std::function<void(Form&, QWidget&, const Control&, QWidget&)>& check) {
    for (Form* form : {static_cast<Form*>(&frm), static_cast<Form*>(&program.AdvancedSettings())}) {
      for (const Control* control : form->Controls()) {
        if (QWidget* widget = platform.controlWidget(*form, control->Name()))
          check(*form, platform.windowWidget(*form), *control, *widget);
      }
    }
  }
};

TEST_F(FormMirrorTest, LayoutIsTheTwipsTableAtOneScaleInsideTheClientArea) {
  const bool wide = qEnvironmentVariableIsSet("KORVANE_WIDE_FONT");
  EXPECT_EQ(platform.windowWidget(frm).width() > 582, wide);
  forEachWidget([&](Form& form, QWidget& window, const Control& control, QWidget& widget) {
    const double perTwip = wide ? double(window.width()) / form.Definition().clientWidth : 1 / 15.0;
    EXPECT_LE(std::abs(window.width() - form.Definition().clientWidth * perTwip) +
                  std::abs(window.height() - form.Definition().clientHeight * perTwip),
              wide ? 1.5 : 0.5);
    const ControlDefinition& d = control.Definition();
    QRectF expected(d.left * perTwip, d.top * perTwip, d.width * perTwip, d.height * perTwip);
    if (d.container.empty() && d.kind != ControlKind::Frame) {
      EXPECT_TRUE(window.rect().contains(widget.geometry())) << d.name << " reaches past the client area";
      expected &= QRectF(window.rect());
    }
    const QRectF shown(widget.geometry());
    EXPECT_LE(
        std::max({std::abs(shown.left() - expected.left()), std::abs(shown.top() - expected.top()),
                  std::abs(shown.right() - expected.right()), std::abs(shown.bottom() - expected.bottom())}),
        1.5)
        << d.name;
  });
}

// The ink of each caption, and of the widest text a ColorKey or AutoLOD field
// takes, within the room the style leaves it: nothing is cut.
TEST_F(FormMirrorTest, EveryTextFitsItsControl) {
  forEachWidget([](Form&, QWidget&, const Control& control, QWidget& widget) {
    QString text = QString::fromStdString(control.Definition().caption).remove(QLatin1Char('&'));
    QRect room = widget.rect();
    QStyleOptionButton option;
    option.initFrom(&widget);
    if (qobject_cast<QCheckBox*>(&widget))
      room = widget.style()->subElementRect(QStyle::SE_CheckBoxContents, &option, &widget);
    if (qobject_cast<QPushButton*>(&widget))
      room = widget.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &widget);
    if (auto* frame = qobject_cast<ClassicFrame*>(&widget))
      room.adjust(frame->captionRect().left(), 0, -frame->captionRect().left(), 0);
    if (auto* label = qobject_cast<QLabel*>(&widget)) room = label->contentsRect();
    if (control.Kind() == ControlKind::MaskedEdit) {
      text = QString(static_cast<const MaskedEdit&>(control).Settings().maxLength, QLatin1Char('0'));
      room.adjust(4, 0, -5, 0);  // the field's frame and margins, and the caret
    }
    if (text.isEmpty()) return;
    EXPECT_LE(widget.fontMetrics().tightBoundingRect(text).right() + 1, room.width())
        << control.Name() << " cuts off \"" << text.toStdString() << "\" in "
        << QFontInfo(widget.font()).family().toStdString();
    EXPECT_LE(widget.fontMetrics().height(), room.height()) << control.Name();
  });
}

// What lies in a frame, its own children and a control laid over it, keeps
// clear of the line and the caption drawn there.
TEST_F(FormMirrorTest, NoControlCrossesTheLineOfItsFrame) {
  forEachWidget([](Form&, QWidget& window, const Control& control, QWidget& widget) {
    for (auto* frame : window.findChildren<ClassicFrame*>()) {
      const QPoint origin = frame->mapTo(&window, QPoint());
      const QRect line = frame->borderRect().translated(origin);
      const int width = ClassicFrame::kLineWidth;
      const QPoint onLine(frame->width() - 3 * width, frame->borderRect().top());
      EXPECT_EQ(frame->grab().toImage().pixelColor(onLine).rgb(),
                frame->palette().color(QPalette::Mid).rgb());
      const QRect place(widget.mapTo(&window, QPoint()), widget.size());
      if (frame == &widget || !place.intersects(line)) continue;
      EXPECT_TRUE(line.adjusted(width, width, -width, -width).contains(place)) << control.Name();
      EXPECT_FALSE(place.intersects(frame->captionRect().translated(origin))) << control.Name();
    }
  });
}

// Whether some pixel changed by more than a faint shade.
bool plainlyDifferent(const QImage& a, const QImage& b) {
  for (int y = 0; y < std::min(a.height(), b.height()); ++y) {
    for (int x = 0; x < std::min(a.width(), b.width()); ++x) {
      const QColor p = a.pixelColor(x, y), q = b.pixelColor(x, y);
      if (std::abs(p.red() - q.red()) + std::abs(p.green() - q.green()) + std::abs(p.blue() - q.blue()) >= 96)
        return true;
    }
  }
  return false;
}

// Each control that takes the focus shows plainly that it has it, in a light
// and in a dark palette. (The order Tab walks in is the tab index; a scenario walks it.)
TEST_F(FormMirrorTest, TheFocusShows) {
  openLOD0("wood.tga");
  frm.chkAddColorKey.SetValue(1);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);  // boxes and sliders show the focus Tab gives
  const QPalette light = QApplication::palette();
  for (const auto& [name, palette] :
       {std::pair{"light", light}, std::pair{"dark", QPalette(QColor(53, 53, 53))}}) {
    QApplication::setPalette(palette);
    forEachWidget([&name](Form&, QWidget&, const Control& control, QWidget& widget) {
      if (!widget.isVisible() || !widget.isEnabled() || !(widget.focusPolicy() & Qt::TabFocus)) return;
      widget.clearFocus();
      const QImage unfocused = widget.grab().toImage();
      widget.setFocus(Qt::TabFocusReason);
      EXPECT_TRUE(plainlyDifferent(widget.grab().toImage(), unfocused)) << control.Name() << " in " << name;
    });
  }
  QApplication::setPalette(light);
}

}  // namespace
}  // namespace korvane
