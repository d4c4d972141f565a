#pragma once
// Carries out a scenario script against the program on the real Qt windows.
//
// One command runs per turn of the event loop: a zero timer starts it, and
// the next one is queued when it returns, or as soon as a modal window comes
// up inside it. That window runs its own event loop inside the command that
// opened it, and the queued commands go on running inside that loop: so the
// script acts in the settings window while it is modal, and the command that
// opened it returns only once the window has gone.
// Message boxes and file dialogs are answered inside the command that raised
// them and never hold the script up.

#include <Qt>
#include <initializer_list>
#include <string>
#include <vector>

#include "scenario/screen_check.h"
#include "scenario/script.h"

class QAbstractSlider;
class QWidget;

namespace korvane {
class Program;
}  // namespace korvane

namespace korvane::scenario {

class ScenarioPlatform;
class Transcript;

// The process's exit status.
enum ExitStatus : int { kScriptRan = 0, kScriptError = 2, kScreenMismatch = 3 };

class Driver {
 public:
  Driver(ScriptReader& script, Transcript& transcript, ScenarioPlatform& platform, Program& program);

  // Runs the whole script inside the application's event loop.
  ExitStatus run();

 private:
  // A control named by the script, in either window.
  struct Target {
    const ControlDefinition* definition = nullptr;
    Control* record = nullptr;  // nullptr while its window does not exist
  };

  void queueStep();
  void step();
  void execute(const Command& command);
  void fail(int lineNumber, const std::string& what);
  void finish();

  // Main, then FILE as `korvane FILE` hands it over.
  void start(const std::string& file);
  void click(const Command& command);
  void type(const Command& command);
  void leave(const Command& command);
  void dragTo(const Command& command);
  void keys(const Command& command);
  // The slider or scroll bar a command names, in its active window; null when it takes no input.
  QAbstractSlider* reachableBar(const Command& command);
  void keysOnBar(const Command& command);
  void arrow(const Command& command);
  void track(const Command& command);
  // The modal window while there is one, else the main window.
  QWidget& activeWindow();
  // A key pressed in the active window, where its focus lies.
  void pressKey(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void drop(const Command& command);
  void closeMainWindow(const Command& command);
  void closeSettingsWindow(const Command& command);
  void print(const Command& command);
  void dump(const Command& command);

  Target resolve(const Command& command) const;
  // The target if it is of one of the kinds the command works on.
  Target resolveAs(const Command& command, std::initializer_list<ControlKind> kinds,
                   const char* kindsInWords) const;
  // Whether the author can act on it now; if not, the transcript says so.
  bool acceptsInput(const Command& command, const Target& target);
  QWidget& widgetOf(Control& control);
  void checkScreen(const std::string& name, const std::vector<Disagreement>& disagreements);

  ScriptReader& m_script;
  Transcript& m_transcript;
  ScenarioPlatform& m_platform;
  Program& m_program;
  int m_lineNumber = 0;
  bool m_started = false;
  bool m_stepQueued = false;
  bool m_finished = false;
  bool m_mismatch = false;
  ExitStatus m_status = kScriptRan;
};

}  // namespace korvane::scenario
