#pragma once
// The two strings the whole run shares: the application title and the
// directory every file dialog opens in.

#include <string>

namespace korvane {

// The title Main gives AppTitleName.
inline constexpr const char* kAppTitle = "Korvane";

extern std::string AppTitleName;
extern std::string DefaultDirPath;

}  // namespace korvane
