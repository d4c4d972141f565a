#pragma once
// The procedures that take the main window: each hands the stores and values
// of the window to the procedure of the lower layer that works on them, under
// the same name, with the same messages.

#include <cstdint>
#include <optional>
#include <string>

#include "runtime/failure.h"

namespace korvane {

class frmKorvane;
class SourceSnapshot;

std::string ShowFileDialog(frmKorvane& frm, const std::string& title, const std::string& initialDirectory,
                           const std::string& filter, std::int16_t filterIndex, bool saveMode,
                           const std::string& fileName);
std::optional<RuntimeFailure> ReadFileLOD0(frmKorvane& frm, SourceSnapshot&& source);
std::optional<RuntimeFailure> ReadFileLOD1(frmKorvane& frm, SourceSnapshot&& source);
std::optional<RuntimeFailure> SaveFileLOD0(frmKorvane& frm, const std::string& path);
std::optional<RuntimeFailure> SaveFileCombined(frmKorvane& frm, const std::string& path);
void UpdateTextureMapLOD0(frmKorvane& frm);
void UpdateColorKeyLOD0(frmKorvane& frm);
void UpdateLODInformation(frmKorvane& frm);
void UpdateLOD1(frmKorvane& frm);
// These reach the settings window, which the first touch brings into being.
void ReadAutoLODinfo(frmKorvane& frm, const SourceSnapshot& source);
void UseDefaultAutoLOD(frmKorvane& frm);
void btnAdvancedSettings_Click(frmKorvane& frm);

}  // namespace korvane
