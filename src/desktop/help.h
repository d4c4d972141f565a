#pragma once

#include <string>

namespace korvane {

class Platform;

// "<program directory>/Korvane_Help.html"
std::string HelpDocumentPath(Platform& platform);
// Opens the help document, or says "Error launching help file.".
void ViewHelp(Platform& platform);

}  // namespace korvane
