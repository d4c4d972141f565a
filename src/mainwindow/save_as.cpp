// Placeholder until implemented.
#include "mainwindow/save_as.h"

#include "mainwindow/main_window.h"
namespace korvane {
void btnSaveAs_Click(frmKorvane&) {}
}  // namespace korvane
