#include "desktop/file_dialog.h"

#include <filesystem>

#include "controls/file_dialog_control.h"
#include "controls/form.h"
#include "desktop/directory_store.h"
#include "runtime/failure_handling.h"
#include "runtime/platform.h"
#include "runtime/shared_strings.h"
#include "runtime/utf8_path.h"

namespace korvane {

std::string FullPathOf(Platform& platform, const std::string& path) {
  std::filesystem::path chosen = pathFromUtf8(path);
  if (chosen.is_relative()) chosen = (pathFromUtf8(platform.currentDirectory()) / chosen).lexically_normal();
  return utf8FromPath(chosen);
}

// Our dialogs leave the process's current directory where it was, so the
// chosen file's directory comes from the path itself. It must be absolute, or
// the next run would open its dialogs somewhere else.
void RememberDirectoryOf(Platform& platform, const std::string& path) {
  DefaultDirPath = utf8FromPath(pathFromUtf8(FullPathOf(platform, path)).parent_path());
  SaveDefaultDir(platform);
}

std::string ShowFileDialog(FileDialogControl& dialog, const std::string& title,
                           const std::string& initialDirectory, const std::string& filter,
                           std::int16_t filterIndex, bool saveMode, const std::string& fileName) {
  Platform& platform = dialog.Parent().platform();
  std::string result;
  dialog.CancelError = true;
  // Cancel and failure end alike: no path, no message, nothing remembered.
  bool finished = silentLeave([&] {
    // One control serves every dialog, so nothing may carry over from the last one.
    dialog.DialogTitle = title;
    dialog.InitDir = initialDirectory;
    dialog.Filter = filter;
    dialog.FilterIndex = filterIndex;
    dialog.FileName = fileName;

    FileDialogRequest request;
    request.title = dialog.DialogTitle;
    request.initialDirectory = dialog.InitDir;
    request.filter = dialog.Filter;
    request.filterIndex = dialog.FilterIndex;
    request.saveMode = saveMode;
    request.fileName = dialog.FileName;
    std::optional<std::string> chosen = platform.fileDialog(request);
    if (!chosen) return;
    dialog.FileName = *chosen;

    RememberDirectoryOf(platform, *chosen);
    result = *chosen;
  });
  return finished ? result : std::string();
}

}  // namespace korvane
