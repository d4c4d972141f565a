#pragma once
// The platform of korvane-cli: the headless one, with every message box also
// written to standard error as one line, "korvane-cli: " and the prompt, and
// no per-user store: nothing is read from it and nothing is kept.

#include <functional>
#include <string>

#include "desktop/headless_platform.h"

namespace korvane::cli {

// The prompt on one line: each line feed becomes a blank, unless a blank
// stands before it already.
std::string oneLine(const std::string& prompt);

class CliPlatform : public HeadlessPlatform {
 public:
  // Runs before a message is written, so that a progress bar can step aside.
  std::function<void()> beforeMessage;

  void messageBox(const std::string& prompt, const std::string& title) override;
  std::optional<std::string> readUserValue(const std::string&, const std::string&) override {
    return std::nullopt;
  }
  bool writeUserValue(const std::string&, const std::string&, const std::string&) override { return true; }
};

}  // namespace korvane::cli
