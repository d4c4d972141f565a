// Placeholder until implemented.
#include "rewrite/material_lines.h"

#include "mainwindow/main_window.h"
namespace korvane {
void UpdateTextureMapLOD0(frmKorvane&) {}
void UpdateColorKeyLOD0(frmKorvane&) {}
}  // namespace korvane
