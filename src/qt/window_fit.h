#pragma once
// What a window's widgets need of their room in the font they actually got.
//
// A window grows its twips-to-pixel scale by the largest of these factors
// until every one is 1: the layout stays proportional to the definition, the
// way dialog units follow the font on other desktops.

#include <QRect>
#include <QString>

class QWidget;

namespace korvane {

class ClassicFrame;

// How much larger the widget must be for its text to fit across and down:
// its caption, or sample, the widest text its field will hold.
double growthForText(const QWidget& widget, const QString& sample = {});

// How much further the frame's content, at inside (in the frame's own
// coordinates), must move for it to stay clear of the line and caption.
double growthForFrame(const ClassicFrame& frame, const QRect& inside);

}  // namespace korvane
