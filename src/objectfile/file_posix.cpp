#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <optional>

#include "objectfile/file.h"
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
      return failureFromSystemError(ENOTDIR);
    }
  }
  return failureFromSystemError(error);
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

// The file that a path names, symbolic links followed as the system follows
// them; the path as it stands when it names nothing (yet).
std::string followLinks(std::string path) {
  constexpr int kMostLinks = 40;  // as many as the system follows before ELOOP
  for (int hops = 0; hops < kMostLinks; ++hops) {
    struct stat info {};
    if (::lstat(path.c_str(), &info) != 0 || !S_ISLNK(info.st_mode)) return path;
    std::string link(info.st_size > 0 ? static_cast<std::size_t>(info.st_size) : 4096, '\0');
    const ssize_t length = ::readlink(path.c_str(), link.data(), link.size());
    if (length < 0) return path;
    link.resize(static_cast<std::size_t>(length));
    if (!link.starts_with('/')) {
      const std::size_t slash = path.rfind('/');
      link.insert(0, slash == std::string::npos ? std::string() : path.substr(0, slash + 1));
    }
    path = std::move(link);
  }
  throw failureFromSystemError(ELOOP);
}

// What the temporary files of a target's saves begin with. Long names are
// cut so that the whole stays within the system's limit of a file name.
std::string temporaryPrefix(const std::string& name) {
  constexpr std::size_t kLongestName = 200;
  return "." + name.substr(0, kLongestName) + ".korvane-";
}

// Temporary files of earlier saves of the same target whose process no
// longer runs: it was killed or lost power before it could remove them.
void removeLeftovers(const std::string& folder, const std::string& prefix) {
  DIR* directory = ::opendir(folder.c_str());
  if (directory == nullptr) return;
  const pid_t self = ::getpid();
  while (const dirent* entry = ::readdir(directory)) {
    const std::string_view name = entry->d_name;
    if (!name.starts_with(prefix)) continue;
    char* end = nullptr;
    const long pid = std::strtol(name.data() + prefix.size(), &end, 10);
    if (pid <= 0 || *end != '-' || pid == self) continue;
    if (::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH)
      ::unlinkat(::dirfd(directory), name.data(), 0);
  }
  ::closedir(directory);
}

// A new file beside the target, with the target's owner and permission bits
// when there is one; nothing when the folder takes no new file.
std::optional<std::pair<int, std::string>> createBeside(const std::filesystem::path& target,
                                                        const struct stat* old) {
  const std::string folder = target.has_parent_path() ? target.parent_path().string() : ".";
  const std::string prefix = temporaryPrefix(target.filename().string());
  removeLeftovers(folder, prefix);
  static std::atomic<unsigned> counter;
  constexpr int kAttempts = 100;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    const std::string name =
        folder + "/" + prefix + std::to_string(::getpid()) + "-" + std::to_string(counter++);
    // Until it has the old file's bits, no one but the owner may read it.
    const int descriptor = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY,
                                  old != nullptr ? 0600 : 0666);
    if (descriptor < 0) {
      if (errno == EEXIST || errno == EINTR) continue;
      return std::nullopt;
    }
    if (old != nullptr) {
      // Only a privileged process may give a file away; the group may
      // still be kept. Either is left as it is when the system refuses.
      if ((old->st_uid != ::geteuid() || old->st_gid != ::getegid()) &&
          ::fchown(descriptor, old->st_uid, old->st_gid) != 0) {
        [[maybe_unused]] const int ignored = ::fchown(descriptor, static_cast<uid_t>(-1), old->st_gid);
      }
      ::fchmod(descriptor, old->st_mode & 07777);
    }
    return std::pair{descriptor, name};
  }
  return std::nullopt;
}

// The temporary file being written, for removeUnfinishedReplacement: a
// fixed buffer, since a signal handler may neither allocate nor lock.
char g_unfinished[4096];
volatile std::sig_atomic_t g_unfinishedSet = 0;

void noteUnfinished(const std::string& path) {
  g_unfinishedSet = 0;
  if (path.size() >= sizeof g_unfinished) return;
  path.copy(g_unfinished, path.size());
  g_unfinished[path.size()] = '\0';
  g_unfinishedSet = 1;
}

// Makes the rename itself last through a loss of power. Some file systems
// cannot sync a folder; the content is on the disk either way.
void syncFolderOf(const std::filesystem::path& file) {
  const std::string folder = file.has_parent_path() ? file.parent_path().string() : ".";
  const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

// A write past the process's file-size limit fails with EFBIG instead of
// ending the process by SIGXFSZ. Every open for writing makes sure of it.
void keepGoingPastFileSizeLimit() {
  // A handler that someone installed on purpose stays.
  struct sigaction current {};
  if (::sigaction(SIGXFSZ, nullptr, &current) == 0 && current.sa_handler == SIG_DFL)
    ::signal(SIGXFSZ, SIG_IGN);
}

int descriptorOf(std::intptr_t handle) {
  return static_cast<int>(handle);
}

// The open itself may have found a special file that took the path's place.
void checkRegular(int descriptor) {
  struct stat info {};
  if (::fstat(descriptor, &info) != 0) throw failureFromSystemError(errno);
  refuseUnlessRegular(info);
}

}  // namespace

void removeUnfinishedReplacement() noexcept {
  if (g_unfinishedSet) ::unlink(g_unfinished);
}

File File::openForReading(const std::string& path) {
  File file(openOrThrow(path, O_RDONLY));
  checkRegular(descriptorOf(file.m_handle));
  ::posix_fadvise(descriptorOf(file.m_handle), 0, 0, POSIX_FADV_SEQUENTIAL);
  return file;
}

// O_TRUNC cuts nothing but a regular file, so a special file found only after
// the open has lost nothing by the time it is refused.
File File::openForWriting(const std::string& path) {
  keepGoingPastFileSizeLimit();
  File file(openOrThrow(path, O_WRONLY | O_CREAT | O_TRUNC));
  checkRegular(descriptorOf(file.m_handle));
  return file;
}

File File::createTemporary(std::string& path) {
  const char* folder = std::getenv("TMPDIR");
  std::string name = std::string(folder && *folder ? folder : "/tmp") + "/korvane.XXXXXX";
  int descriptor = ::mkostemp(name.data(), O_CLOEXEC);
  if (descriptor < 0) throw failureFromSystemError(errno);
  path = name;
  return File(descriptor);
}

void File::remove(const std::string& path) {
  if (::unlink(path.c_str()) != 0 && errno != ENOENT) throw failureFromSystemError(errno);
}

File::File(File&& other) noexcept : m_handle(std::exchange(other.m_handle, -1)) {}

File::~File() {
  if (m_handle >= 0) ::close(descriptorOf(m_handle));
}

std::uint64_t File::size() const {
  struct stat info {};
  if (::fstat(descriptorOf(m_handle), &info) != 0) throw failureFromSystemError(errno);
  return static_cast<std::uint64_t>(info.st_size);
}

std::size_t File::readSome(char* buffer, std::size_t size) {
  for (;;) {
    ssize_t count = ::read(descriptorOf(m_handle), buffer, size);
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) throw failureFromSystemError(errno);
  }
}

void File::writeAll(const char* data, std::size_t size) {
  while (size > 0) {
    ssize_t count = ::write(descriptorOf(m_handle), data, size);
    if (count < 0) {
      if (errno == EINTR) continue;
      throw failureFromSystemError(errno);
    }
    // A write that takes nothing and names no error would loop for ever.
    if (count == 0) throw failureFromSystemError(ENOSPC);
    data += count;
    size -= static_cast<std::size_t>(count);
  }
}

void File::flushToDisk() {
  // EINVAL: a file system that keeps nothing on a disk, such as a pipe's.
  while (::fdatasync(descriptorOf(m_handle)) != 0) {
    if (errno == EINVAL) return;
    if (errno != EINTR) throw failureFromSystemError(errno);
  }
}

void File::close() {
  int descriptor = descriptorOf(std::exchange(m_handle, -1));
  // On Linux the descriptor is gone even when close reports EINTR; closing it
  // again could hit a descriptor opened since, so EINTR is let pass.
  if (descriptor >= 0 && ::close(descriptor) != 0 && errno != EINTR) throw failureFromSystemError(errno);
}

FileReplacement FileReplacement::begin(const std::string& target) {
  keepGoingPastFileSizeLimit();
  const std::string file = followLinks(target);
  struct stat info {};
  const bool exists = ::stat(file.c_str(), &info) == 0;
  if (exists) {
    refuseUnlessRegular(info);
    // A file that may not be written is not replaced either, though its
    // folder would let it be.
    if (::faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) != 0) throw openFailure(file, errno);
  }
  // The other names of a file with several would go on naming the old one.
  const std::filesystem::path path(file);
  if ((!exists || info.st_nlink == 1) && path.has_filename()) {
    if (auto created = createBeside(path, exists ? &info : nullptr)) {
      noteUnfinished(created->second);
      return FileReplacement(File(created->first), std::move(created->second), file);
    }
  }
  return FileReplacement(File::openForWriting(file), {}, file);
}

FileReplacement::FileReplacement(FileReplacement&& other) noexcept
    : m_file(std::move(other.m_file)),
      m_temporary(std::exchange(other.m_temporary, {})),
      m_target(std::move(other.m_target)),
      m_written(other.m_written),
      m_handedToDisk(other.m_handedToDisk) {}

FileReplacement::~FileReplacement() {
  if (m_temporary.empty()) return;
  g_unfinishedSet = 0;
  ::unlink(m_temporary.c_str());
}

void FileReplacement::writeAll(const char* data, std::size_t size) {
  m_file.writeAll(data, size);
  m_written += size;
  // The disk starts on the content while the rest is still being written,
  // so that the wait for all of it at the commit is short. Only a hint: a
  // failure shows at the commit.
  constexpr std::size_t kHandOnEvery = std::size_t{8} << 20;
  if (inPlace() || m_written - m_handedToDisk < kHandOnEvery) return;
  ::sync_file_range(descriptorOf(m_file.m_handle), static_cast<off_t>(m_handedToDisk),
                    static_cast<off_t>(m_written - m_handedToDisk), SYNC_FILE_RANGE_WRITE);
  m_handedToDisk = m_written;
}

void FileReplacement::commit() {
  if (inPlace()) return m_file.close();
  m_file.flushToDisk();
  m_file.close();
  if (::rename(m_temporary.c_str(), m_target.c_str()) != 0) throw failureFromSystemError(errno);
  g_unfinishedSet = 0;
  m_temporary.clear();
  syncFolderOf(m_target);
}

}  // namespace korvane
