#include "qt/desktop.h"

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

}  // namespace korvane
