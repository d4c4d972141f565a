#include "runtime/message_box.h"

#include "runtime/platform.h"
#include "runtime/shared_strings.h"

namespace korvane {

std::string AppTitleName;
std::string DefaultDirPath;

void MsgBox(Platform& platform, const std::string& prompt) {
  platform.messageBox(prompt, AppTitleName);
}

}  // namespace korvane
