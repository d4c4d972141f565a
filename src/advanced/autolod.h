#pragma once
// The AutoLOD values: their one normal form, reading them from a source, the
// defaults, and the handlers of the settings window.

#include <string>
#include <string_view>

namespace korvane {

class SourceSnapshot;
class frmAdvancedSettings;

inline constexpr const char* kDefaultAutoLOD0 = "0.250";
inline constexpr const char* kDefaultAutoLOD1 = "0.000";

// LeadingNumber, rounded as a 64-bit real to three decimals (an exact half to
// the even thousandth), written "0.000".
std::string NormalizeAutoLOD(std::string_view text);
// How a field shows its text while it does not have the focus.
std::string FormatAutoLODForDisplay(std::string_view text);

// Both set the fields of the settings window. The main window's versions,
// which bring that window into being, are in mainwindow/window_procedures.h.
void ReadAutoLODinfo(frmAdvancedSettings& settings, const SourceSnapshot& source);
void UseDefaultAutoLOD(frmAdvancedSettings& settings);

void OKButton_Click(frmAdvancedSettings& frm);
void btnUseDefault_Click(frmAdvancedSettings& frm);
void mskAutoLOD0_LostFocus(frmAdvancedSettings& frm);
void mskAutoLOD1_LostFocus(frmAdvancedSettings& frm);

}  // namespace korvane
