#include "objectfile/posix_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "runtime/failure.h"

namespace korvane {
namespace {

// The system says ENOENT both for a missing file and for a missing directory
// on the way to it; the author is better served by "Path not found" for the
// second.
RuntimeFailure openFailure(const std::string& path, int error) {
  if (error == ENOENT) {
    std::string parent = std::filesystem::path(path).parent_path().string();
    struct stat info {};
    if (!parent.empty() && (::stat(parent.c_str(), &info) != 0 || !S_ISDIR(info.st_mode))) {
      return failureFromErrno(ENOTDIR);
    }
  }
  return failureFromErrno(error);
}

int openOrThrow(const std::string& path, int flags) {
  for (;;) {
    int descriptor = ::open(path.c_str(), flags | O_CLOEXEC, 0666);
    if (descriptor >= 0) return descriptor;
    if (errno != EINTR) throw openFailure(path, errno);
  }
}

}  // namespace

PosixFile PosixFile::openForReading(const std::string& path) {
  PosixFile file(openOrThrow(path, O_RDONLY));
  // Linux opens a directory for reading without complaint; refuse it here so
  // that it can never pass for an empty file.
  struct stat info {};
  if (::fstat(file.m_descriptor, &info) != 0) throw failureFromErrno(errno);
  if (S_ISDIR(info.st_mode)) throw failureFromErrno(EISDIR);
  ::posix_fadvise(file.m_descriptor, 0, 0, POSIX_FADV_SEQUENTIAL);
  return file;
}

PosixFile PosixFile::openForWriting(const std::string& path) {
  return PosixFile(openOrThrow(path, O_WRONLY | O_CREAT | O_TRUNC));
}

PosixFile::PosixFile(PosixFile&& other) noexcept : m_descriptor(other.m_descriptor) {
  other.m_descriptor = -1;
}

PosixFile::~PosixFile() {
  if (m_descriptor >= 0) ::close(m_descriptor);
}

std::size_t PosixFile::readSome(char* buffer, std::size_t size) {
  for (;;) {
    ssize_t count = ::read(m_descriptor, buffer, size);
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) throw failureFromErrno(errno);
  }
}

void PosixFile::writeAll(const char* data, std::size_t size) {
  while (size > 0) {
    ssize_t count = ::write(m_descriptor, data, size);
    if (count < 0) {
      if (errno == EINTR) continue;
      throw failureFromErrno(errno);
    }
    // A write that takes nothing and names no error would loop for ever.
    if (count == 0) throw failureFromErrno(ENOSPC);
    data += count;
    size -= static_cast<std::size_t>(count);
  }
}

void PosixFile::close() {
  int descriptor = m_descriptor;
  m_descriptor = -1;
  // On Linux the descriptor is gone even when close reports EINTR; closing it
  // again could hit a descriptor opened since, so EINTR is let pass.
  if (descriptor >= 0 && ::close(descriptor) != 0 && errno != EINTR) throw failureFromErrno(errno);
}

}  // namespace korvane
