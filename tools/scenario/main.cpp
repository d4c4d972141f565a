// korvane-scenario --store FILE [SCRIPT]: runs Korvane on its real windows,
// offscreen, acting out the script (or standard input) and writing the
// transcript of what the author would see to standard output.

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>

#include "scenario/driver.h"
#include "scenario/scenario_platform.h"
#include "scenario/script.h"
#include "scenario/transcript.h"
#include "shell/program.h"

namespace {

struct Arguments {
  std::string storeFile;
  std::optional<std::string> scriptFile;
};

std::optional<Arguments> parseArguments(int argc, char* argv[]) {
  Arguments arguments;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--store") == 0 && i + 1 < argc) {
      arguments.storeFile = argv[++i];
    } else if (argv[i][0] != '-' && !arguments.scriptFile) {
      arguments.scriptFile = argv[i];
    } else {
      return std::nullopt;
    }
  }
  if (arguments.storeFile.empty()) return std::nullopt;
  return arguments;
}

// Standard error is the script's: one line for a script error. Qt's own
// notes about the offscreen platform would only bury it.
void keepSeriousQtMessages(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(message));
}

int refuse(const std::string& what) {
  std::fprintf(stderr, "korvane-scenario: %s\n", what.c_str());
  return korvane::scenario::kScriptError;
}

}  // namespace

int main(int argc, char* argv[]) {
  const std::optional<Arguments> arguments = parseArguments(argc, argv);
  if (!arguments) return refuse("usage: korvane-scenario --store FILE [SCRIPT]");
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(keepSeriousQtMessages);
  QApplication application(argc, argv);

  // Both paths hold, whatever directory the script moves to before start.
  const QString storeFile = QFileInfo(QString::fromStdString(arguments->storeFile)).absoluteFilePath();
  if (!QFileInfo::exists(storeFile)) {
    QFile created(storeFile);
    if (!created.open(QIODevice::WriteOnly)) return refuse("cannot create the store " + arguments->storeFile);
  }
  std::ifstream scriptFile;
  if (arguments->scriptFile) {
    scriptFile.open(*arguments->scriptFile, std::ios::binary);
    if (!scriptFile) return refuse("cannot read the script " + *arguments->scriptFile);
  }

  korvane::scenario::Transcript transcript(stdout);
  korvane::scenario::ScenarioPlatform platform(storeFile, transcript);
  korvane::Program program(platform);
  korvane::scenario::ScriptReader script(arguments->scriptFile ? static_cast<std::istream&>(scriptFile)
                                                               : std::cin);
  korvane::scenario::Driver driver(script, transcript, platform, program);
  return driver.run();
}
