#include "scenario/author_actions.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QCheckBox>
#include <QDropEvent>
#include <QFileInfo>
#include <QLineEdit>
#include <QMimeData>
#include <QPointer>
#include <QScrollBar>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionSlider>
#include <QTest>
#include <QUrl>
#include <QWidget>
#include <algorithm>
#include <cctype>

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

Qt::Key qtKey(Key key) {
  switch (key) {
    case Key::Home:
      return Qt::Key_Home;
    case Key::End:
      return Qt::Key_End;
    case Key::Left:
      return Qt::Key_Left;
    case Key::Right:
      return Qt::Key_Right;
    case Key::Backspace:
      return Qt::Key_Backspace;
    case Key::Delete:
      return Qt::Key_Delete;
    case Key::Up:
      return Qt::Key_Up;
    case Key::Down:
      return Qt::Key_Down;
    case Key::PgUp:
      return Qt::Key_PageUp;
    case Key::PgDn:
      return Qt::Key_PageDown;
    case Key::Text:
      break;
  }
  return Qt::Key_unknown;
}

// The style option the widget paints itself with; initStyleOption is
// protected, and reached through a pointer to the inherited member.
template <class W>
QStyleOptionSlider styleOption(const W& widget) {
  struct Access : W {
    static void init(const W& w, QStyleOptionSlider* option) { (w.*&Access::initStyleOption)(option); }
  };
  QStyleOptionSlider option;
  Access::init(widget, &option);
  return option;
}

QRect subControl(const QAbstractSlider& bar, QStyle::ComplexControl control, QStyle::SubControl part,
                 const QStyleOptionSlider& option) {
  return bar.style()->subControlRect(control, &option, part, &bar);
}

// The middle of the track between the thumb and the end of the slider's groove.
QRect sliderTrack(const QSlider& slider, bool before) {
  const QStyleOptionSlider option = styleOption(slider);
  const QRect groove = subControl(slider, QStyle::CC_Slider, QStyle::SC_SliderGroove, option);
  const QRect handle = subControl(slider, QStyle::CC_Slider, QStyle::SC_SliderHandle, option);
  if (slider.orientation() == Qt::Horizontal) {
    return before ? QRect(QPoint(groove.left(), groove.top()), QPoint(handle.left() - 1, groove.bottom()))
                  : QRect(QPoint(handle.right() + 1, groove.top()), groove.bottomRight());
  }
  return before ? QRect(QPoint(groove.left(), groove.top()), QPoint(groove.right(), handle.top() - 1))
                : QRect(QPoint(groove.left(), handle.bottom() + 1), groove.bottomRight());
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

void pressKeysIn(QWidget& field, const std::vector<KeyStroke>& keys) {
  if (!field.hasFocus()) {
    field.setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(&field)) edit->end(false);
  }
  for (const KeyStroke& stroke : keys) {
    if (stroke.key != Key::Text) {
      QTest::keyClick(&keyTarget(field), qtKey(stroke.key));
      continue;
    }
    for (char32_t character : QString::fromStdString(stroke.text).toUcs4()) typeCharacter(field, character);
  }
}

bool pressKeysOn(QAbstractSlider& bar, const std::vector<KeyStroke>& keys) {
  if (bar.focusPolicy() == Qt::NoFocus) return false;
  bar.setFocus(Qt::OtherFocusReason);
  for (const KeyStroke& stroke : keys) QTest::keyClick(&keyTarget(bar), qtKey(stroke.key));
  return true;
}

void clickArrow(QScrollBar& bar, bool towardsStart) {
  const QRect arrow =
      subControl(bar, QStyle::CC_ScrollBar,
                 towardsStart ? QStyle::SC_ScrollBarSubLine : QStyle::SC_ScrollBarAddLine, styleOption(bar));
  QTest::mouseClick(&bar, Qt::LeftButton, {}, arrow.center());
}

bool clickTrack(QAbstractSlider& bar, bool before) {
  QRect track;
  if (auto* scrollBar = qobject_cast<QScrollBar*>(&bar)) {
    track = subControl(bar, QStyle::CC_ScrollBar,
                       before ? QStyle::SC_ScrollBarSubPage : QStyle::SC_ScrollBarAddPage,
                       styleOption(*scrollBar));
  } else if (auto* slider = qobject_cast<QSlider*>(&bar)) {
    track = sliderTrack(*slider, before);
  }
  if (track.isEmpty()) return false;
  QTest::mouseClick(&bar, Qt::LeftButton, {}, track.center());
  return true;
}

void pressAccessKey(QWidget& window, char letter) {
  const QPointer<QWidget> guard(&window);
  // Qt's key codes of letters and digits are their upper-case characters.
  pressKey(window, std::toupper(static_cast<unsigned char>(letter)), Qt::AltModifier);
  // A button still down after the wait is the driver's to report, not this key's.
  static_cast<void>(QTest::qWaitFor(
      [&guard] {
        if (guard.isNull()) return true;
        const QList<QAbstractButton*> buttons = guard->findChildren<QAbstractButton*>();
        return std::none_of(buttons.begin(), buttons.end(),
                            [](const QAbstractButton* b) { return b->isDown(); });
      },
      kActivationTimeoutMs));
}

void pressKey(QWidget& window, int key, Qt::KeyboardModifiers modifiers) {
  QWidget* focus = window.focusWidget();
  QTest::keyClick(focus != nullptr ? focus : &window, static_cast<Qt::Key>(key), modifiers);
}

bool dropFile(QWidget& widget, const QString& path) {
  QWidget& window = *widget.window();
  const QPointF at = widget.mapTo(&window, widget.rect().center());
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath())});
  QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &enter);
  QDragMoveEvent move(at.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  if (enter.isAccepted()) QApplication::sendEvent(&window, &move);
  if (!enter.isAccepted() || !move.isAccepted()) {
    QDragLeaveEvent leave;
    QApplication::sendEvent(&window, &leave);
    return false;
  }
  QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &drop);
  return drop.isAccepted();
}

}  // namespace korvane::scenario
