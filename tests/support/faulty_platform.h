#pragma once
// The scripted platform with hooks on the store, on opening a document and on
// unloading a window, where a test makes them fail or counts them.

#include <functional>

#include "support/scripted_platform.h"

namespace korvane::testing {

class FaultyPlatform : public ScriptedPlatform {
 public:
  std::function<void()> onRead = [] {}, onWrite = [] {}, onUnload = [] {}, onOpen = [] {};

  std::optional<std::string> readUserValue(const std::string& key, const std::string& name) override {
    onRead();
    return ScriptedPlatform::readUserValue(key, name);
  }
  bool writeUserValue(const std::string& key, const std::string& name, const std::string& data) override {
    onWrite();
    return ScriptedPlatform::writeUserValue(key, name, data);
  }
  bool openDocument(const std::string& path) override {
    bool launched = ScriptedPlatform::openDocument(path);
    onOpen();
    return launched;
  }
  void unloadWindow(Form& window) override {
    ScriptedPlatform::unloadWindow(window);
    onUnload();
  }
};

}  // namespace korvane::testing
