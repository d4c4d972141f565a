#include <QString>

#include "qt/desktop.h"

// shellapi.h needs windows.h before it.
// clang-format off
#include <windows.h>
#include <shellapi.h>
// clang-format on

namespace korvane {

std::unique_ptr<QSettings> openUserStore() {
  // The registry's current-user hive: "Software/Korvane/DefaultDir" is the
  // text value DefaultDir under HKEY_CURRENT_USER\Software\Korvane.
  return std::make_unique<QSettings>(QStringLiteral("HKEY_CURRENT_USER"), QSettings::NativeFormat);
}

bool nativeFileDialogs() {
  // The common dialogs. Qt asks them for any file, so an Open dialog takes
  // the typed name of a file that does not exist, and a Save dialog asks
  // nothing before a file is replaced (QFileDialog::DontConfirmOverwrite).
  return true;
}

bool displayAvailable() {
  // A Windows session always has its desktop.
  return true;
}

std::vector<std::string> programArguments(int, char*[]) {
  // argv is in the ANSI code page, which cannot name every file: the
  // arguments are taken again from the wide command line.
  int count = 0;
  LPWSTR* wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; wide != nullptr && i < count; ++i)
    arguments.push_back(QString::fromWCharArray(wide[i]).toStdString());
  LocalFree(wide);
  return arguments;
}

}  // namespace korvane
