#include "process_tools.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/statvfs.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>

extern char** environ;

namespace korvane::bench {

namespace {

volatile sig_atomic_t g_running = 0;
std::uint64_t g_lastPeak = 0;

pid_t spawn(const std::vector<std::string>& argv, posix_spawn_file_actions_t& actions) {
  std::vector<char*> args;
  for (const std::string& arg : argv) args.push_back(const_cast<char*>(arg.c_str()));
  args.push_back(nullptr);
  pid_t pid = 0;
  int error = posix_spawnp(&pid, args[0], &actions, nullptr, args.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error("cannot start " + argv[0] + ": " + std::strerror(error));
  g_running = pid;
  return pid;
}

void waitForSuccess(pid_t pid, const std::string& name) {
  int status = 0;
  rusage usage{};
  while (wait4(pid, &status, 0, &usage) < 0) {
    if (errno != EINTR) throw std::runtime_error("cannot wait for " + name);
  }
  g_running = 0;
  g_lastPeak = static_cast<std::uint64_t>(usage.ru_maxrss) * 1024;  // given in kB
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) throw std::runtime_error(name + " failed");
}

}  // namespace

double timeCommand(const std::vector<std::string>& argv, const std::string& stdoutPath) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (!stdoutPath.empty()) {
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, stdoutPath.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0644);
  }
  auto start = std::chrono::steady_clock::now();
  pid_t pid = spawn(argv, actions);
  waitForSuccess(pid, argv[0]);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

std::string captureCommand(const std::vector<std::string>& argv) {
  int fds[2];
  if (pipe(fds) != 0) throw std::runtime_error("cannot make a pipe");
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, fds[1], STDOUT_FILENO);
  posix_spawn_file_actions_addclose(&actions, fds[0]);
  pid_t pid;
  try {
    pid = spawn(argv, actions);
  } catch (...) {
    close(fds[0]);
    close(fds[1]);
    throw;
  }
  close(fds[1]);
  std::string out;
  char buffer[4096];
  for (;;) {
    ssize_t n = read(fds[0], buffer, sizeof buffer);
    if (n > 0) {
      out.append(buffer, static_cast<std::size_t>(n));
    } else if (n == 0 || errno != EINTR) {
      break;
    }
  }
  close(fds[0]);
  waitForSuccess(pid, argv[0]);
  return out;
}

void stopRunningCommand() {
  pid_t pid = g_running;
  if (pid <= 0) return;
  kill(pid, SIGTERM);
  waitpid(pid, nullptr, 0);
}

std::uint64_t lastCommandPeakBytes() {
  return g_lastPeak;
}

std::uint64_t peakResidentBytes() {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.rfind("VmHWM:", 0) == 0) return std::stoull(line.substr(6)) * 1024;  // given in kB
  }
  return 0;
}

std::uint64_t freeBytes(const std::string& path) {
  struct statvfs info {};
  if (statvfs(path.c_str(), &info) != 0) return 0;
  return static_cast<std::uint64_t>(info.f_bavail) * info.f_frsize;
}

std::string selfExecutable() {
  return std::filesystem::read_symlink("/proc/self/exe").string();
}

}  // namespace korvane::bench
