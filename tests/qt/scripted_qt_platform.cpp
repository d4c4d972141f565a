#include "scripted_qt_platform.h"

#include <gtest/gtest.h>

namespace korvane::testing {

void ScriptedQtPlatform::messageBox(const std::string& prompt, const std::string& title) {
  messages.push_back(prompt);
  messageTitles.push_back(title);
}

std::optional<std::string> ScriptedQtPlatform::fileDialog(const FileDialogRequest& request) {
  dialogRequests.push_back(request);
  if (dialogAnswers.empty()) {
    ADD_FAILURE() << "a file dialog opened with no answer queued: " << request.title;
    return std::nullopt;
  }
  auto answer = dialogAnswers.front();
  dialogAnswers.pop_front();
  return answer;
}

bool ScriptedQtPlatform::openDocument(const std::string& path) {
  openedDocuments.push_back(path);
  return openSucceeds;
}

}  // namespace korvane::testing
