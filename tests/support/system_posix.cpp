#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <filesystem>

#include "support/system.h"

namespace korvane::testing {

std::vector<std::string> specialFileKinds() {
  return {"Fifo", "Device", "Socket", "Directory"};
}

std::string makeSpecialFile(const std::string& kind, const std::string& role, const std::string& path) {
  // Endless as a source; as the target, the device that swallows all.
  if (kind == "Device") return role == "AsTarget" ? "/dev/null" : "/dev/zero";
  if (kind == "Fifo") ::mkfifo(path.c_str(), 0600);
  if (kind == "Directory") std::filesystem::create_directory(path);
  if (kind == "Socket") {
    sockaddr_un address{AF_UNIX, {}};
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address);
    ::close(socket);  // the socket file stays
  }
  return path;
}

void endProcessAfter(unsigned seconds) {
  ::alarm(seconds);
}

}  // namespace korvane::testing
