#include "desktop/headless_platform.h"

#include <filesystem>

#include "controls/form.h"
#include "runtime/utf8_path.h"

namespace korvane {

void HeadlessPlatform::messageBox(const std::string& prompt, const std::string&) {
  messages.push_back(prompt);
}

std::optional<std::string> HeadlessPlatform::fileDialog(const FileDialogRequest&) {
  if (dialogAnswers.empty()) return std::nullopt;
  std::optional<std::string> path = std::move(dialogAnswers.front());
  dialogAnswers.pop_front();
  return path;
}

std::optional<std::string> HeadlessPlatform::readUserValue(const std::string& keyPath,
                                                           const std::string& valueName) {
  auto found = store.find({keyPath, valueName});
  if (found == store.end()) return std::nullopt;
  return found->second;
}

bool HeadlessPlatform::writeUserValue(const std::string& keyPath, const std::string& valueName,
                                      const std::string& data) {
  store[{keyPath, valueName}] = data;
  return true;
}

std::string HeadlessPlatform::currentDirectory() {
  return utf8FromPath(std::filesystem::current_path());
}

void HeadlessPlatform::showWindow(Form& window) {
  window.SetVisible(true);
}

void HeadlessPlatform::hideWindow(Form& window) {
  window.SetVisible(false);
}

// The settings window is left at once, as if its OK button had been clicked.
void HeadlessPlatform::showModal(Form& window, Form&) {
  window.SetVisible(false);
}

}  // namespace korvane
