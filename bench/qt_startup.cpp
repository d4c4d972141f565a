#include "qt_startup.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iostream>
#include <thread>
#include <vector>

extern char** environ;

namespace korvane::bench {

namespace {

using Clock = std::chrono::steady_clock;

// CPU time of the process in nanoseconds, from the scheduler's own count,
// which is far finer than the clock ticks of /proc/<pid>/stat.
std::optional<unsigned long long> cpuNanoseconds(pid_t pid) {
  std::ifstream in("/proc/" + std::to_string(pid) + "/schedstat");
  unsigned long long running = 0;
  if (!(in >> running)) return std::nullopt;
  return running;
}

std::optional<double> timeOneStart(const std::string& program) {
  std::vector<std::string> environment;
  for (char** e = environ; *e; ++e) {
    if (std::string_view(*e).rfind("QT_QPA_PLATFORM=", 0) != 0) environment.emplace_back(*e);
  }
  environment.emplace_back("QT_QPA_PLATFORM=offscreen");
  std::vector<char*> envp;
  for (std::string& entry : environment) envp.push_back(entry.data());
  envp.push_back(nullptr);
  std::string name = program;
  char* argv[] = {name.data(), nullptr};

  auto start = Clock::now();
  pid_t pid = 0;
  if (posix_spawn(&pid, program.c_str(), nullptr, nullptr, argv, envp.data()) != 0) return std::nullopt;

  // Quiet for this long after the last CPU use counts as waiting for events.
  constexpr auto kQuiet = std::chrono::milliseconds(300);
  constexpr auto kGiveUp = std::chrono::seconds(20);
  unsigned long long lastCpu = 0;
  auto lastChange = start;
  std::optional<double> result;
  for (;;) {
    std::this_thread::sleep_for(std::chrono::microseconds(500));
    auto now = Clock::now();
    int status = 0;
    if (waitpid(pid, &status, WNOHANG) == pid) return std::nullopt;  // ended by itself
    std::optional<unsigned long long> cpu = cpuNanoseconds(pid);
    if (!cpu) break;
    if (*cpu != lastCpu) {
      lastCpu = *cpu;
      lastChange = now;
    } else if (lastCpu > 0 && now - lastChange >= kQuiet) {
      result = std::chrono::duration<double>(lastChange - start).count();
      break;
    }
    if (now - start > kGiveUp) break;
  }
  kill(pid, SIGTERM);
  waitpid(pid, nullptr, 0);
  return result;
}

}  // namespace

std::optional<double> timeQtStartUp(const std::string& program) {
  std::vector<double> times;
  for (int i = 0; i < 5; ++i) {
    std::optional<double> seconds = timeOneStart(program);
    if (!seconds) {
      std::cerr << "the Qt program " << program << " could not be timed\n";
      return std::nullopt;
    }
    times.push_back(*seconds);
  }
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

}  // namespace korvane::bench
