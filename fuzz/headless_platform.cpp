#include "headless_platform.h"

#include "controls/form.h"

namespace korvane::fuzzing {

void HeadlessPlatform::messageBox(const std::string& prompt, const std::string&) {
  messages.push_back(prompt);
}

std::optional<std::string> HeadlessPlatform::fileDialog(const FileDialogRequest&) {
  return std::nullopt;
}

std::optional<std::string> HeadlessPlatform::readUserValue(const std::string& keyPath,
                                                           const std::string& valueName) {
  auto found = m_store.find({keyPath, valueName});
  if (found == m_store.end()) return std::nullopt;
  return found->second;
}

bool HeadlessPlatform::writeUserValue(const std::string& keyPath, const std::string& valueName,
                                      const std::string& data) {
  m_store[{keyPath, valueName}] = data;
  return true;
}

bool HeadlessPlatform::openDocument(const std::string&) {
  return false;
}

void HeadlessPlatform::showWindow(Form& window) {
  window.SetVisible(true);
}

void HeadlessPlatform::showModal(Form& window, Form&) {
  window.SetVisible(false);
}

void HeadlessPlatform::hideWindow(Form& window) {
  window.SetVisible(false);
}

}  // namespace korvane::fuzzing
