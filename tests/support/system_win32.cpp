#include <windows.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "support/system.h"

namespace korvane::testing {

std::vector<std::string> specialFileKinds() {
  return {"Pipe", "NUL", "CON", "COM1", "Directory"};
}

std::string makeSpecialFile(const std::string& kind, const std::string&, const std::string& path) {
  if (kind == "Directory") std::filesystem::create_directory(path);
  if (kind != "Pipe") return kind == "Directory" ? path : kind;
  // A pipe with its server waiting, one more instance on each call; it lives
  // as long as the test's process.
  std::string name = R"(\\.\pipe\korvane-test-)" + std::to_string(::GetCurrentProcessId());
  ::CreateNamedPipeA(name.c_str(), PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE, PIPE_UNLIMITED_INSTANCES, 4096, 4096,
                     0, nullptr);
  return name;
}

void endProcessAfter(unsigned seconds) {
  static std::atomic<unsigned> generation = 0;
  unsigned mine = ++generation;
  if (seconds == 0) return;
  std::thread([=] {
    ::Sleep(seconds * 1000);
    if (generation == mine) std::_Exit(124);
  }).detach();
}

}  // namespace korvane::testing
