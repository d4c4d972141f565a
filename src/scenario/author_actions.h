#pragma once
// The author's hands: mouse clicks, key presses and drags on the real
// widgets, with the focus moving as it does on the desktop, so that a field
// being left runs its LostFocus before the click or key that left it.

#include <QString>

class QAbstractSlider;
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

// A key pressed in the window, where the window's focus lies.
void pressKey(QWidget& window, int key);

}  // namespace korvane::scenario
