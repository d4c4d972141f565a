#pragma once
// What the windows take from the desktop they run on, one file per system
// (desktop_posix.cpp, desktop_win32.cpp, chosen by CMake): where the user's
// remembered directory lives, whose file dialogs are shown, and whether there
// is a screen at all.

#include <QSettings>
#include <memory>
#include <string>
#include <vector>

namespace korvane {

// The user's own store. Its keys are the key path with '/' between the parts
// and the value name: "Software/Korvane/DefaultDir".
std::unique_ptr<QSettings> openUserStore();

// Whether the file dialogs are the desktop's own rather than Qt's.
bool nativeFileDialogs();

// Whether a window can be shown; when not, a line on standard error has said why.
bool displayAvailable();

// The arguments after the program's name, in UTF-8 like every path of the logic.
std::vector<std::string> programArguments(int argc, char* argv[]);

}  // namespace korvane
