#include "cli/cli_platform.h"

#include <cstdio>

namespace korvane::cli {

std::string oneLine(const std::string& prompt) {
  std::string line;
  for (char c : prompt) {
    if (c == '\r') continue;
    if (c == '\n') {
      if (!line.empty() && line.back() != ' ') line += ' ';
      continue;
    }
    line += c;
  }
  return line;
}

void CliPlatform::messageBox(const std::string& prompt, const std::string& title) {
  HeadlessPlatform::messageBox(prompt, title);
  if (beforeMessage) beforeMessage();
  std::string line = "korvane-cli: " + oneLine(prompt) + "\n";
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace korvane::cli
