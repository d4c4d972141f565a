#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "cli/cli_system.h"

namespace korvane::cli {

std::span<const int> endingSignals() {
  static constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};
  return kSignals;
}

std::string readJobs(const std::string& path, std::string& text) {
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) return std::strerror(errno);
  if (S_ISDIR(info.st_mode)) return "is a folder";
  if (!S_ISREG(info.st_mode)) return "not a regular file";
  const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (fd < 0) return std::strerror(errno);
  std::string why;
  // Looked at again on the open file, should the path have changed meanwhile.
  if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) why = "not a regular file";
  char buffer[65536];
  for (ssize_t count = 0; why.empty() && (count = ::read(fd, buffer, sizeof buffer)) != 0;) {
    if (count > 0) {
      text.append(buffer, static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      why = std::strerror(errno);
    }
  }
  ::close(fd);
  return why;
}

std::string unreadable(const std::string& path) {
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) return std::strerror(errno);
  if (S_ISDIR(info.st_mode)) return "is a folder";
  if (!S_ISREG(info.st_mode)) return "not a regular file";
  if (::access(path.c_str(), R_OK) != 0) return std::strerror(errno);
  return {};
}

bool standardOutputIsTerminal() {
  return ::isatty(STDOUT_FILENO) != 0;
}

void removeFromSignalHandler(const char* path) noexcept {
  ::unlink(path);
}

}  // namespace korvane::cli
