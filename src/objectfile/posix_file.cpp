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

// Only regular files are read or written. A FIFO would hold the open until
// its other end came, a device may never end or, as /dev/null would, swallow
// a save: each counts as a file that cannot be reached, and nothing of it is
// read or written.
void refuseUnlessRegular(const struct stat& info) {
  if (!S_ISREG(info.st_mode)) throw RuntimeFailure(failure_number::PathFileAccessError);
}

int openOrThrow(const std::string& path, int flags) {
  // Looked at before the open so that no device is opened at all; a path that
  // names nothing yet is left to the open, which knows its own failure.
  struct stat info {};
  if (::stat(path.c_str(), &info) == 0) refuseUnlessRegular(info);
  // Should a special file take the path's place meanwhile, O_NONBLOCK keeps
  // the open from waiting on it, O_NOCTTY keeps a terminal from becoming ours,
  // and the fstat below refuses it.
  flags |= O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
  for (;;) {
    int descriptor = ::open(path.c_str(), flags, 0666);
    if (descriptor >= 0) return descriptor;
    if (errno != EINTR) throw openFailure(path, errno);
  }
}

}  // namespace

PosixFile PosixFile::openRegular(const std::string& path, int flags) {
  PosixFile file(openOrThrow(path, flags));
  struct stat info {};
  if (::fstat(file.m_descriptor, &info) != 0) throw failureFromErrno(errno);
  refuseUnlessRegular(info);
  return file;
}

PosixFile PosixFile::openForReading(const std::string& path) {
  PosixFile file = openRegular(path, O_RDONLY);
  ::posix_fadvise(file.m_descriptor, 0, 0, POSIX_FADV_SEQUENTIAL);
  return file;
}

// O_TRUNC cuts nothing but a regular file, so a special file found only after
// the open has lost nothing by the time it is refused.
PosixFile PosixFile::openForWriting(const std::string& path) {
  return openRegular(path, O_WRONLY | O_CREAT | O_TRUNC);
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
