#pragma once
// A platform with no screen, for korvane-cli, the benchmark, the fuzz
// targets and, recording what happens, the tests: file dialogs answered from
// a queue (none queued cancels), message boxes collected instead of shown,
// the per-user store in memory only, a modal window left at once.

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "runtime/platform.h"

namespace korvane {

class HeadlessPlatform : public Platform {
 public:
  std::deque<std::optional<std::string>> dialogAnswers;  // nullopt cancels
  std::vector<std::string> messages;
  std::map<std::pair<std::string, std::string>, std::string> store;  // (key path, value name) -> text
  TwipsSize screen{1920 * 15.0, 1080 * 15.0};
  TwipsSize frame{90, 405};

  void answer(std::string path) { dialogAnswers.push_back(std::move(path)); }
  void cancel() { dialogAnswers.push_back(std::nullopt); }

  void messageBox(const std::string& prompt, const std::string& title) override;
  std::optional<std::string> fileDialog(const FileDialogRequest& request) override;
  std::optional<std::string> readUserValue(const std::string& keyPath, const std::string& valueName) override;
  bool writeUserValue(const std::string& keyPath, const std::string& valueName,
                      const std::string& data) override;
  bool openDocument(const std::string&) override { return false; }
  TwipsSize screenSize() override { return screen; }
  TwipsSize windowFrameSize(const Form&) override { return frame; }
  std::string currentDirectory() override;
  std::string programDirectory() override { return currentDirectory(); }
  void showWindow(Form& window) override;
  void showModal(Form& window, Form& owner) override;
  void hideWindow(Form& window) override;
  void unloadWindow(Form&) override {}
  void setFocus(Form&, Control&) override {}
  void endProcess() override {}
};

}  // namespace korvane
