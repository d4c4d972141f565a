#include "support/scripted_platform.h"

#include <gtest/gtest.h>

#include "controls/form.h"
#include "runtime/failure.h"

namespace korvane::testing {

void ScriptedPlatform::messageBox(const std::string& prompt, const std::string& title) {
  events.push_back("MSGBOX " + prompt);
  messages.push_back(prompt);
  messageTitles.push_back(title);
}

std::optional<std::string> ScriptedPlatform::fileDialog(const FileDialogRequest& request) {
  events.push_back(std::string("DIALOG ") + (request.saveMode ? "save " : "open ") + request.title);
  if (dialogFails) throw RuntimeFailure(failure_number::InvalidProcedureCall);
  if (dialogAnswers.empty()) {
    ADD_FAILURE() << "a file dialog opened with no answer queued: " << request.title;
    return std::nullopt;
  }
  auto answer = dialogAnswers.front();
  dialogAnswers.pop_front();
  return answer;
}

std::optional<std::string> ScriptedPlatform::readUserValue(const std::string& keyPath,
                                                           const std::string& valueName) {
  auto found = store.find({keyPath, valueName});
  if (found == store.end()) return std::nullopt;
  return found->second;
}

bool ScriptedPlatform::writeUserValue(const std::string& keyPath, const std::string& valueName,
                                      const std::string& data) {
  store[{keyPath, valueName}] = data;
  return true;
}

bool ScriptedPlatform::openDocument(const std::string& path) {
  events.push_back("OPEN " + path);
  return openSucceeds;
}

void ScriptedPlatform::showWindow(Form& window) {
  events.push_back("SHOW " + window.Name());
}

void ScriptedPlatform::showModal(Form& window, Form&) {
  events.push_back("SHOW " + window.Name());
  window.SetVisible(false);  // left at once, as if its OK button had been clicked
}

void ScriptedPlatform::hideWindow(Form& window) {
  events.push_back("HIDE " + window.Name());
}

void ScriptedPlatform::unloadWindow(Form& window) {
  events.push_back("UNLOAD " + window.Name());
}

void ScriptedPlatform::setFocus(Form&, Control& control) {
  events.push_back("FOCUS " + control.Name());
}

}  // namespace korvane::testing
