#include "desktop/help.h"

#include "runtime/failure_handling.h"
#include "runtime/message_box.h"
#include "runtime/platform.h"
#include "runtime/shared_strings.h"

namespace korvane {

std::string HelpDocumentPath(Platform& platform) {
  std::string directory = platform.programDirectory();
  // A program in the root directory must not give "//".
  if (directory.empty() || directory.back() != '/') directory += '/';
  return directory + AppTitleName + "_Help" + ".html";
}

void ViewHelp(Platform& platform) {
  // Each step is given up on its own failure; a launch that never happened
  // counts as a failed one, so the author still hears of it.
  bool launched = false;
  ignoringFailure([&] { launched = platform.openDocument(HelpDocumentPath(platform)); });
  if (launched) return;
  ignoringFailure([&] { MsgBox(platform, "Error launching help file."); });
}

}  // namespace korvane
