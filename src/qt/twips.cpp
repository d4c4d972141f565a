#include "qt/twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <cmath>

namespace korvane {

namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kFallbackDotsPerInch = 96;

double logicalDotsPerInch() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  const double dpi = screen ? screen->logicalDotsPerInchY() : 0;
  return dpi > 0 ? dpi : kFallbackDotsPerInch;
}

}  // namespace

double twipsPerPixel() {
  return kTwipsPerInch / logicalDotsPerInch();
}

int twipsToPixels(double twips) {
  return static_cast<int>(std::lround(twips / twipsPerPixel()));
}

double pixelsToTwips(double pixels) {
  return pixels * twipsPerPixel();
}

QRect pixelGeometry(const ControlDefinition& definition, double scale) {
  return QRect(twipsToPixels(definition.left * scale), twipsToPixels(definition.top * scale),
               twipsToPixels(definition.width * scale), twipsToPixels(definition.height * scale));
}

}  // namespace korvane
