// Placeholder until implemented.
#include "advanced/autolod.h"

#include "advanced/advanced_settings_window.h"
#include "mainwindow/main_window.h"
namespace korvane {
std::string NormalizeAutoLOD(std::string_view) { return {}; }
std::string FormatAutoLODForDisplay(std::string_view t) { return std::string(t); }
void ReadAutoLODinfo(Program&, const std::string&) {}
void UseDefaultAutoLOD(Program&) {}
void btnAdvancedSettings_Click(frmKorvane&) {}
void OKButton_Click(frmAdvancedSettings&) {}
void btnUseDefault_Click(frmAdvancedSettings&) {}
void mskAutoLOD0_LostFocus(frmAdvancedSettings&) {}
void mskAutoLOD1_LostFocus(frmAdvancedSettings&) {}
}  // namespace korvane
