#pragma once
// A platform with no desktop behind it, for the fuzz targets: message boxes
// are recorded, dialogs are cancelled, modal windows are left at once.

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "runtime/platform.h"

namespace korvane::fuzzing {

class HeadlessPlatform : public Platform {
 public:
  std::vector<std::string> messages;

  void messageBox(const std::string& prompt, const std::string& title) override;
  std::optional<std::string> fileDialog(const FileDialogRequest& request) override;
  std::optional<std::string> readUserValue(const std::string& keyPath, const std::string& valueName) override;
  bool writeUserValue(const std::string& keyPath, const std::string& valueName,
                      const std::string& data) override;
  bool openDocument(const std::string& path) override;
  TwipsSize screenSize() override { return {1920 * 15.0, 1080 * 15.0}; }
  TwipsSize windowFrameSize(const Form&) override { return {90, 405}; }
  std::string currentDirectory() override { return "/tmp"; }
  std::string programDirectory() override { return "/tmp"; }
  void showWindow(Form& window) override;
  void showModal(Form& window, Form& owner) override;
  void hideWindow(Form& window) override;
  void unloadWindow(Form&) override {}
  void setFocus(Form&, Control&) override {}
  void endProcess() override {}

 private:
  std::map<std::pair<std::string, std::string>, std::string> m_store;
};

}  // namespace korvane::fuzzing
