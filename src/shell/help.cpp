// Placeholder until implemented.
#include "shell/help.h"

namespace korvane {
std::string HelpDocumentPath(Platform&) { return {}; }
void ViewHelp(Platform&) {}
}  // namespace korvane
