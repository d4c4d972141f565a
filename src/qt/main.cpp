// Korvane: starts the program logic on the real platform and runs the event loop.

#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <string>

#include "mainwindow/source_loading.h"
#include "qt/desktop.h"
#include "qt/fonts.h"
#include "qt/qt_platform.h"
#include "shell/command_line.h"
#include "shell/program.h"

int main(int argc, char* argv[]) {
  // The arguments are the program's own: Qt sees none of them, and a wrong
  // one is told before any display is needed.
  const korvane::CommandLine commandLine = korvane::ParseCommandLine(korvane::programArguments(argc, argv));
  switch (commandLine.action) {
    case korvane::CommandLine::Action::Help:
      return std::fputs(commandLine.text.c_str(), stdout), 0;
    case korvane::CommandLine::Action::Version:
      return std::printf("korvane %s\n", KORVANE_VERSION), 0;
    case korvane::CommandLine::Action::Refuse:
      return std::fputs(commandLine.text.c_str(), stderr), korvane::kUsageExitStatus;
    case korvane::CommandLine::Action::Run:
      break;
  }
  if (!korvane::displayAvailable()) return 1;
  int qtArgc = 1;
  QApplication application(qtArgc, argv);
  // Message boxes and file dialogs in the windows' own face, so the program looks like one piece.
  QApplication::setFont(korvane::windowFont());
  // Names the installed desktop entry, so that Wayland docks find its name and icon.
  QGuiApplication::setDesktopFileName(QStringLiteral("io.github.korvane.Korvane"));
  korvane::QtPlatform platform;
  korvane::Program program(platform);
  platform.runEntryPoint("Main", [&program] { program.Main(); });
  if (platform.ended()) return 0;
  if (!program.MainWindowLoaded() || !program.MainWindow().Visible()) return 1;
  if (!commandLine.file.empty()) {
    // Once the window is up, so that a refusal shows over it.
    QTimer::singleShot(0, &application, [&] {
      platform.runEntryPoint("Main", [&] {
        korvane::HandFileToFrame(program.MainWindow(), korvane::SourceFrame::LOD0, commandLine.file);
      });
    });
  }
  return application.exec();
}
