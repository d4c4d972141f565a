// Korvane: starts the program logic on the real platform and runs the event loop.

#include <QApplication>

#include "qt/desktop.h"
#include "qt/fonts.h"
#include "qt/qt_platform.h"
#include "shell/program.h"

int main(int argc, char* argv[]) {
  if (!korvane::displayAvailable()) return 1;
  QApplication application(argc, argv);
  // Message boxes and file dialogs in the windows' own face, so the program looks like one piece.
  QApplication::setFont(korvane::windowFont());
  // Names the installed desktop entry, so that Wayland docks find its name and icon.
  QGuiApplication::setDesktopFileName(QStringLiteral("io.github.korvane.Korvane"));
  korvane::QtPlatform platform;
  korvane::Program program(platform);
  platform.runEntryPoint("Main", [&program] { program.Main(); });
  if (platform.ended()) return 0;
  if (!program.MainWindowLoaded() || !program.MainWindow().Visible()) return 1;
  return application.exec();
}
