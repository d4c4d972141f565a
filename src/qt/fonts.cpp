#include "qt/fonts.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QStringList>

namespace korvane {

namespace {

// Faces drawn to the same advance widths as the family that names them.
QStringList metricTwins(const QString& family) {
  if (family.compare(QLatin1String("Arial"), Qt::CaseInsensitive) == 0)
    return {QStringLiteral("Liberation Sans"), QStringLiteral("Arimo")};
  if (family.compare(QLatin1String("Courier New"), Qt::CaseInsensitive) == 0)
    return {QStringLiteral("Liberation Mono"), QStringLiteral("Cousine")};
  return {};
}

bool resolvesTo(const QFont& font, const QString& family) {
  return QFontInfo(font).family().compare(family, Qt::CaseInsensitive) == 0;
}

}  // namespace

QFont designFont(const QString& family, double points) {
  QFont font(family);
  font.setPointSizeF(points);
  font.setWeight(QFont::Normal);
  const QStringList twins = metricTwins(family);
  if (resolvesTo(font, family) || twins.isEmpty()) return font;
  for (const QString& twin : twins) {
    if (!resolvesTo(QFont(twin), twin)) continue;
    font.setFamily(twin);
    return font;
  }
  // Nothing with the right metrics: the window grows to fit what it got.
  return font;
}

QFont windowFont() {
  // The layout was drawn for the classic 8-point dialog face, whose widths
  // Arial matches at 10 pixels: 7.5 points at 96 dots per inch. At 8 points
  // Arial rounds to 11 pixels, and "Number Of LOD:" no longer fits its label.
  return designFont(QStringLiteral("Arial"), 7.5);
}

}  // namespace korvane
