#include "desktop/directory_store.h"

#include "runtime/failure_handling.h"
#include "runtime/message_box.h"
#include "runtime/message_frames.h"
#include "runtime/platform.h"
#include "runtime/shared_strings.h"

namespace korvane {

// The hive names the user's part of the registry; the platform's store is
// per user already, so only the key path and value name reach it.
std::string GetRegStr(Platform& platform, const std::string& keyPath, const std::string& valueName,
                      std::uint32_t /*hive*/) {
  std::string text;
  reportAndLeave(
      [&] {
        // A missing key or value and a stored empty text all read as no value.
        std::optional<std::string> stored = platform.readUserValue(keyPath, valueName);
        if (stored) text = *stored;
      },
      [&](const RuntimeFailure& failure) {
        text.clear();
        MsgBox(platform, getRegStrErrorMessage(failure));
      });
  return text;
}

void SetRegStr(Platform& platform, const std::string& valueName, const std::string& data,
               const std::string& keyPath, std::uint32_t /*hive*/) {
  // A store that cannot be written keeps its old value; the author is not told.
  ignoringFailure([&] { platform.writeUserValue(keyPath, valueName, data); });
}

std::string defaultDirKeyPath(const std::string& appTitle) {
  return "Software\\" + appTitle;
}

void SaveDefaultDir(Platform& platform) {
  SetRegStr(platform, kDefaultDirValueName, DefaultDirPath, defaultDirKeyPath(AppTitleName),
            HKEY_CURRENT_USER);
}

}  // namespace korvane
