#pragma once
// A platform for tests: dialogs answered from a queue, messages and window
// events recorded in order, an in-memory per-user store.

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "runtime/platform.h"

namespace korvane::testing {

class ScriptedPlatform : public Platform {
 public:
  // One line per event, in order: "MSGBOX <prompt>", "DIALOG open|save <title>",
  // "FOCUS <control>", "SHOW <window>", "HIDE <window>", "UNLOAD <window>",
  // "OPEN <path>", "EXIT".
  std::vector<std::string> events;
  std::vector<std::string> messages;  // prompts only
  std::vector<std::string> messageTitles;

  // Queued answers: a path, or nullopt for a cancel.
  std::deque<std::optional<std::string>> dialogAnswers;
  bool dialogFails = false;  // the next dialogs throw failure 5

  std::map<std::pair<std::string, std::string>, std::string> store;

  bool openSucceeds = true;
  TwipsSize screen{1920 * 15.0, 1080 * 15.0};
  TwipsSize frame{90, 405};
  std::string cwd = "/home/author";
  std::string programDir = "/opt/korvane";

  void clearLog() {
    events.clear();
    messages.clear();
    messageTitles.clear();
  }

  void answer(const std::string& path) { dialogAnswers.push_back(path); }
  void cancel() { dialogAnswers.push_back(std::nullopt); }

  void messageBox(const std::string& prompt, const std::string& title) override;
  std::optional<std::string> fileDialog(const FileDialogRequest& request) override;
  std::optional<std::string> readUserValue(const std::string& keyPath, const std::string& valueName) override;
  bool writeUserValue(const std::string& keyPath, const std::string& valueName,
                      const std::string& data) override;
  bool openDocument(const std::string& path) override;
  TwipsSize screenSize() override { return screen; }
  TwipsSize windowFrameSize(const Form&) override { return frame; }
  std::string currentDirectory() override { return cwd; }
  std::string programDirectory() override { return programDir; }
  void showWindow(Form& window) override;
  void showModal(Form& window, Form& owner) override;
  void hideWindow(Form& window) override;
  void unloadWindow(Form& window) override;
  void setFocus(Form& window, Control& control) override;
  void endProcess() override { events.push_back("EXIT"); }
};

}  // namespace korvane::testing
