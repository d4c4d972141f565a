#pragma once
// The real Qt platform with the author's side of its dialogs scripted:
// message boxes are recorded instead of shown, file dialogs take queued
// answers, documents are not opened, and leaving the event loop is counted
// (the tests run none). The windows, widgets and the store are the real ones.

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "qt/qt_platform.h"

namespace korvane::testing {

class ScriptedQtPlatform : public QtPlatform {
 public:
  explicit ScriptedQtPlatform(const QString& storeFile) : QtPlatform(storeFile) {}

  std::vector<std::string> messages;
  std::vector<std::string> messageTitles;
  std::vector<FileDialogRequest> dialogRequests;
  std::deque<std::optional<std::string>> dialogAnswers;
  std::vector<std::string> openedDocuments;
  bool openSucceeds = true;
  int eventLoopQuits = 0;

  void answer(const std::string& path) { dialogAnswers.push_back(path); }
  void cancel() { dialogAnswers.push_back(std::nullopt); }

  void messageBox(const std::string& prompt, const std::string& title) override;
  std::optional<std::string> fileDialog(const FileDialogRequest& request) override;
  bool openDocument(const std::string& path) override;

 protected:
  void quitEventLoop() override { ++eventLoopQuits; }
};

}  // namespace korvane::testing
