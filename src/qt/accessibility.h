#pragma once
// What the windows tell assistive technology beyond what Qt's widgets say on
// their own. The names come from what the window shows: a control's caption,
// the label that heads it, a button's tool tip where it says more than the
// caption, or else the name its record gives it. Frames are named groups, a
// window says whether it is modal, and a scroll bar reports the values its
// record holds. Qt carries all of it to AT-SPI on Linux and to UI Automation on Windows.

#include <QString>

namespace korvane {

class Control;
struct Rgb;

// Lets Qt ask for the accessible interfaces of the program's own widget
// classes, after the QApplication exists; Qt keeps one of each factory.
void installAccessibleInterfaces();

// The name a screen reader says for the control; empty where Qt's own is
// right (a label says its caption, which may change).
QString spokenName(const Control& control);

// A colour in words, as the swatch describes itself.
QString colourDescription(const Rgb& color);

}  // namespace korvane
