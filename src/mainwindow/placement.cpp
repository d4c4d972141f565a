// Placeholder until implemented.
#include "mainwindow/placement.h"

namespace korvane {
void CenterFormHorizontally(Form&) {}
void CenterFormVertically(Form&) {}
}  // namespace korvane
