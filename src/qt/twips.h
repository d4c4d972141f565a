#pragma once
// The records measure in twips (1,440 to the inch); widgets measure in
// pixels at the primary screen's logical resolution, 15 twips to the pixel at
// 96 dots per inch.

#include <QRect>

#include "controls/control.h"

namespace korvane {

double twipsPerPixel();
int twipsToPixels(double twips);
double pixelsToTwips(double pixels);

// Where a control sits inside its container, in pixels, with the window's
// layout grown by scale (1: as defined).
QRect pixelGeometry(const ControlDefinition& definition, double scale = 1);

}  // namespace korvane
