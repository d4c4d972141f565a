#include <QtGlobal>
#include <cstdio>

#include "qt/desktop.h"

namespace korvane {

std::unique_ptr<QSettings> openUserStore() {
  // A settings file of the user's own (~/.config/Korvane/Korvane.ini).
  return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Korvane"),
                                     QStringLiteral("Korvane"));
}

bool nativeFileDialogs() {
  // Qt's own dialog: it takes a typed name of a file that does not exist in
  // an Open dialog, as the callers expect, which the desktop's may not.
  return false;
}

bool displayAvailable() {
  // Without any display Qt would abort with a trace; one line says it plainly.
  if (!qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
      !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    return true;
  std::fputs("Korvane needs a graphical desktop: no display found (DISPLAY is not set).\n", stderr);
  return false;
}

std::vector<std::string> programArguments(int argc, char* argv[]) {
  return std::vector<std::string>(argv + 1, argv + argc);
}

}  // namespace korvane
