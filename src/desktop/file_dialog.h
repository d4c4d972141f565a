#pragma once
// The one way to ask for a file.

#include <cstdint>
#include <string>

namespace korvane {

class FileDialogControl;
class Platform;

inline constexpr const char* kKobFilter = "KOB File (*.kob)|*.kob|All Files (*.*) |*.*";
inline constexpr const char* kTgaFilter = "TGA File (*.tga)|*.tga|All Files (*.*) |*.*";

// The chosen file's full path, or the empty string (cancelled or failed). A
// chosen file's directory becomes DefaultDirPath and is stored. The window's
// version hands over its CommonDialog1 (mainwindow/window_procedures.h).
std::string ShowFileDialog(FileDialogControl& dialog, const std::string& title,
                           const std::string& initialDirectory, const std::string& filter,
                           std::int16_t filterIndex, bool saveMode, const std::string& fileName);

// A file named outside the dialogs (on the command line, by a drop): its full
// path, a relative one taken against the current directory as a typed name is.
std::string FullPathOf(Platform& platform, const std::string& path);
// The file's directory becomes DefaultDirPath and is stored, as after a dialog
// that ended with the file.
void RememberDirectoryOf(Platform& platform, const std::string& path);

}  // namespace korvane
