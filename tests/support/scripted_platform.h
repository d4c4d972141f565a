#pragma once
// The headless platform as the tests use it: dialogs answered from a queue of
// paths and cancels, messages and window events recorded in order.

#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "controls/form.h"
#include "desktop/headless_platform.h"
#include "runtime/failure.h"
#include "runtime/platform.h"

namespace korvane::testing {

class ScriptedPlatform : public HeadlessPlatform {
 public:
  // One line per event, in order: "MSGBOX <prompt>", "DIALOG open|save <title>", "FOCUS <control>",
  // "SHOW <window>", "HIDE <window>", "UNLOAD <window>", "OPEN <path>", "EXIT".
  std::vector<std::string> events;
  std::vector<std::string> messageTitles;

  bool dialogFails = false;  // the next dialogs throw failure 5
  bool openSucceeds = true;
  std::string programDir = "/opt/korvane";

  void clearLog() {
    events.clear();
    messages.clear();
    messageTitles.clear();
  }

  void messageBox(const std::string& prompt, const std::string& title) override {
    events.push_back("MSGBOX " + prompt);
    messageTitles.push_back(title);
    HeadlessPlatform::messageBox(prompt, title);
  }
  std::optional<std::string> fileDialog(const FileDialogRequest& request) override {
    events.push_back(std::string("DIALOG ") + (request.saveMode ? "save " : "open ") + request.title);
    if (dialogFails) throw RuntimeFailure(failure_number::InvalidProcedureCall);
    if (dialogAnswers.empty())
      ADD_FAILURE() << "a file dialog opened with no answer queued: " << request.title;
    return HeadlessPlatform::fileDialog(request);
  }
  bool openDocument(const std::string& path) override {
    events.push_back("OPEN " + path);
    return openSucceeds;
  }
  std::string currentDirectory() override { return "/home/author"; }
  std::string programDirectory() override { return programDir; }
  // Windows are only recorded: a test sets what it needs of them itself.
  void showWindow(Form& window) override { events.push_back("SHOW " + window.Name()); }
  void showModal(Form& window, Form& owner) override {
    events.push_back("SHOW " + window.Name());
    HeadlessPlatform::showModal(window, owner);
  }
  void hideWindow(Form& window) override { events.push_back("HIDE " + window.Name()); }
  void unloadWindow(Form& window) override { events.push_back("UNLOAD " + window.Name()); }
  void setFocus(Form&, Control& control) override { events.push_back("FOCUS " + control.Name()); }
  void endProcess() override { events.push_back("EXIT"); }
};

}  // namespace korvane::testing
