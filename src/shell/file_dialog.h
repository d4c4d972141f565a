#pragma once
// The one way to ask for a file.

#include <cstdint>
#include <string>

namespace korvane {

class frmKorvane;

inline constexpr const char* kKobFilter = "KOB File (*.kob)|*.kob|All Files (*.*) |*.*";
inline constexpr const char* kTgaFilter = "TGA File (*.tga)|*.tga|All Files (*.*) |*.*";

// The chosen file's full path, or the empty string (cancelled or failed). A
// chosen file's directory becomes DefaultDirPath and is stored.
std::string ShowFileDialog(frmKorvane& frm, const std::string& title, const std::string& initialDirectory,
                           const std::string& filter, std::int16_t filterIndex, bool saveMode,
                           const std::string& fileName);

}  // namespace korvane
