#pragma once
// A platform for tests: dialogs answered from a queue, messages and window
// events recorded in order, an in-memory per-user store.

#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "controls/form.h"
#include "runtime/failure.h"
#include "runtime/platform.h"

namespace korvane::testing {

class ScriptedPlatform : public Platform {
 public:
  // One line per event, in order: "MSGBOX <prompt>", "DIALOG open|save <title>", "FOCUS <control>",
  // "SHOW <window>", "HIDE <window>", "UNLOAD <window>", "OPEN <path>", "EXIT".
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
  std::string programDir = "/opt/korvane";

  void clearLog() {
    events.clear();
    messages.clear();
    messageTitles.clear();
  }

  void answer(const std::string& path) { dialogAnswers.push_back(path); }
  void cancel() { dialogAnswers.push_back(std::nullopt); }

  void messageBox(const std::string& prompt, const std::string& title) override {
    events.push_back("MSGBOX " + prompt);
    messages.push_back(prompt);
    messageTitles.push_back(title);
  }
  std::optional<std::string> fileDialog(const FileDialogRequest& request) override {
    events.push_back(std::string("DIALOG ") + (request.saveMode ? "save " : "open ") + request.title);
    if (dialogFails) throw RuntimeFailure(failure_number::InvalidProcedureCall);
    if (dialogAnswers.empty())
      ADD_FAILURE() << "a file dialog opened with no answer queued: " << request.title;
    if (dialogAnswers.empty()) return std::nullopt;
    auto answer = dialogAnswers.front();
    dialogAnswers.pop_front();
    return answer;
  }
  std::optional<std::string> readUserValue(const std::string& keyPath,
                                           const std::string& valueName) override {
    auto found = store.find({keyPath, valueName});
    return found == store.end() ? std::nullopt : std::optional(found->second);
  }
  bool writeUserValue(const std::string& keyPath, const std::string& valueName,
                      const std::string& data) override {
    store[{keyPath, valueName}] = data;
    return true;
  }
  bool openDocument(const std::string& path) override {
    events.push_back("OPEN " + path);
    return openSucceeds;
  }
  TwipsSize screenSize() override { return screen; }
  TwipsSize windowFrameSize(const Form&) override { return frame; }
  std::string currentDirectory() override { return "/home/author"; }
  std::string programDirectory() override { return programDir; }
  void showWindow(Form& window) override { events.push_back("SHOW " + window.Name()); }
  void showModal(Form& window, Form&) override {
    events.push_back("SHOW " + window.Name());
    window.SetVisible(false);  // left at once, as if its OK button had been clicked
  }
  void hideWindow(Form& window) override { events.push_back("HIDE " + window.Name()); }
  void unloadWindow(Form& window) override { events.push_back("UNLOAD " + window.Name()); }
  void setFocus(Form&, Control& control) override { events.push_back("FOCUS " + control.Name()); }
  void endProcess() override { events.push_back("EXIT"); }
};

}  // namespace korvane::testing
