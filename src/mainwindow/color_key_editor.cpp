// Placeholder until implemented.
#include "mainwindow/color_key_editor.h"

#include "mainwindow/main_window.h"
namespace korvane {
void mskColorKey_Change(frmKorvane&, int) {}
void vscrlColorKey_Change(frmKorvane&, int) {}
void sldColorKey_Change(frmKorvane&, int) {}
void chkAddColorKey_Click(frmKorvane&) {}
void ReadColorKeyINI(frmKorvane&, const std::string&) {}
}  // namespace korvane
