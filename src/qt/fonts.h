#pragma once
// The faces the windows were laid out in, found by name on this machine.
//
// The definitions name Arial and Courier New. Where fontconfig would hand out
// a face with other metrics for them (DejaVu, say), the window asks for a
// metric-compatible face it knows instead, so that the layout holds on every
// desktop that has one installed.

#include <QFont>
#include <QString>

namespace korvane {

// The nearest face to family with the same metrics, at points, weight 400.
QFont designFont(const QString& family, double points);

// The face of every control that names none, and of the program's own
// message boxes and file dialogs.
QFont windowFont();

}  // namespace korvane
