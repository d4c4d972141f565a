#include "scenario/author_actions.h"

#include <QAbstractSlider>
#include <QApplication>
#include <QCheckBox>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>
#include <QWidget>

namespace korvane::scenario {

namespace {

constexpr int kActivationTimeoutMs = 5000;

QPoint clickPoint(QWidget& widget) {
  if (auto* box = qobject_cast<QCheckBox*>(&widget)) {
    QStyleOptionButton option;
    option.initFrom(box);
    option.text = box->text();
    return box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box).center();
  }
  return widget.rect().center();
}

// The widget that the next key goes to: the focus, or the window itself.
QWidget& keyTarget(QWidget& fallback) {
  if (QWidget* focus = QApplication::focusWidget()) return *focus;
  return fallback;
}

void typeCharacter(QWidget& fallback, char32_t character) {
  QWidget& target = keyTarget(fallback);
  switch (character) {
    case U'\t':
      QTest::keyClick(&target, Qt::Key_Tab);
      return;
    case U'\n':
    case U'\r':
      QTest::keyClick(&target, Qt::Key_Return);
      return;
    default:
      break;
  }
  if (character >= 0x20 && character < 0x7f) {
    QTest::keyClick(&target, static_cast<char>(character));
    return;
  }
  // Beyond ASCII there is no key code; the key carries its character alone.
  const QString text = QString::fromUcs4(&character, 1);
  QTest::sendKeyEvent(QTest::Click, &target, Qt::Key_unknown, text, Qt::NoModifier);
}

}  // namespace

bool activate(QWidget& window) {
  if (QApplication::activeWindow() == &window) return true;
  window.activateWindow();
  return QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }, kActivationTimeoutMs);
}

void clickOn(QWidget& widget) {
  QTest::mouseClick(&widget, Qt::LeftButton, {}, clickPoint(widget));
}

void typeInto(QWidget& field, const QString& text) {
  clickOn(field);
  QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
  if (text.isEmpty()) {
    QTest::keyClick(&field, Qt::Key_Delete);
    return;
  }
  for (char32_t character : text.toUcs4()) typeCharacter(field, character);
}

void leaveField(QWidget& field) {
  if (!field.hasFocus()) clickOn(field);
  QTest::keyClick(&field, Qt::Key_Tab);
}

void drag(QAbstractSlider& bar, int position) {
  // Pressing the thumb takes the focus, as any press on a widget that takes it by click.
  if (bar.focusPolicy() & Qt::ClickFocus) bar.setFocus(Qt::MouseFocusReason);
  bar.setSliderDown(true);
  bar.setSliderPosition(position);
  bar.setSliderDown(false);
}

void pressKey(QWidget& window, int key) {
  QWidget* focus = window.focusWidget();
  QTest::keyClick(focus != nullptr ? focus : &window, static_cast<Qt::Key>(key));
}

}  // namespace korvane::scenario
