#pragma once
// The author's hands: mouse clicks, key presses and drags on the real
// widgets, with the focus moving as it does on the desktop, so that a field
// being left runs its LostFocus before the click or key that left it.

#include <QString>
#include <vector>

#include "scenario/script.h"

class QAbstractSlider;
class QScrollBar;
class QWidget;

namespace korvane::scenario {

// Brings the window to the front and waits until it is the active one:
// focus changes are only told to the widgets of the active window. Whether
// it became active: if not, the action goes ahead all the same and the
// transcript shows what came of it.
bool activate(QWidget& window);

// A click on a button, or on the box of a check box.
void clickOn(QWidget& widget);

// A click into the field, all of its text
// selected, then text key by key to whatever has the focus; an empty text
// deletes the selection. Tab, CR and LF press their keys.
void typeInto(QWidget& field, const QString& text);

// The focus leaves the field with Tab, for the next control in tab order.
void leaveField(QWidget& field);

// The thumb pressed, dragged to the position and let go.
void drag(QAbstractSlider& bar, int position);

// The focus goes to the field with nothing selected and the caret at the
// end, unless it has the focus already: then caret and selection stay. The
// keys go one by one to whatever has the focus.
void pressKeysIn(QWidget& field, const std::vector<KeyStroke>& keys);

// The focus goes to the slider or bar, then the keys are pressed on it.
// False if it never takes the focus: the keys would reach nothing.
bool pressKeysOn(QAbstractSlider& bar, const std::vector<KeyStroke>& keys);

// A click on an arrow of the bar: the one towards its start (up, or left)
// or towards its end. The place comes from the bar's style.
void clickArrow(QScrollBar& bar, bool towardsStart);

// A click in the track before or after the thumb. False when the thumb
// leaves no track on that side to click.
bool clickTrack(QAbstractSlider& bar, bool before);

// Alt and the letter in the window. The button of that access key clicks
// itself a moment later, after showing itself pressed: this returns when it
// has (a window that the click opens has come and gone by then).
void pressAccessKey(QWidget& window, char letter);

// The file dragged from another program onto the middle of the widget and
// let go there. False if its window refused it there.
bool dropFile(QWidget& widget, const QString& path);

// A key pressed in the window, where the window's focus lies.
void pressKey(QWidget& window, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

}  // namespace korvane::scenario
