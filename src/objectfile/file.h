#pragma once
// An open file that closes itself, and the replacement of a file's whole
// content, on whichever system the program runs: file_posix.cpp and
// file_win32.cpp are the two sides, and the build takes one. Paths are UTF-8.
// Every error of the system comes out as the RuntimeFailure the program
// reports, so the transfers and the lookup never look at the system's error
// codes themselves.

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace korvane {

// Both opens take regular files only and never wait: a FIFO, a device, a
// socket, a pipe or a directory is failure 75, "Path/File access error", and
// nothing of it is read, written or cut.
class File {
 public:
  // Others may go on reading the file while it is open.
  static File openForReading(const std::string& path);
  // Creates the file, or cuts an existing one to nothing.
  static File openForWriting(const std::string& path);
  // A new, empty file of a name no other file has, in the system's folder for
  // temporary files; its path is put in path.
  static File createTemporary(std::string& path);
  // Removes a file; a file that is not there is no failure.
  static void remove(const std::string& path);

  File(File&& other) noexcept;
  File& operator=(File&&) = delete;
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  // Closes quietly: whoever needs to hear of a failed close calls close().
  ~File();

  // The size in bytes at this moment; the file may still grow.
  std::uint64_t size() const;
  // Up to size bytes; 0 only at the end of the file.
  std::size_t readSome(char* buffer, std::size_t size);
  // All of the bytes, however many calls the system needs for them.
  void writeAll(const char* data, std::size_t size);
  // Waits until the bytes written are on the disk.
  void flushToDisk();
  // Some file systems only report a failed write here.
  void close();

 private:
  friend class FileReplacement;
  // A descriptor on POSIX, a HANDLE on Windows; -1 once closed on both.
  explicit File(std::intptr_t handle) : m_handle(handle) {}

  std::intptr_t m_handle;
};

// A file's new content, written to a temporary file beside it and put in its
// place in one step, so that a save that fails or is killed half way leaves
// the old file whole. The temporary file is ".NAME.korvane-PID-N" in the
// target's folder; one left behind by a process that died is removed by the
// next save to the same target.
//
// A symbolic link has the file it points to replaced. On POSIX the new file
// keeps the old one's permission bits (and owner, where the system lets it); a
// new file gets the usual ones under the umask. Where no temporary file can be
// made beside the target, or the target has more than one hard link, the
// target is cut and written in place, as File::openForWriting does.
class FileReplacement {
 public:
  // Refuses a target that cannot be written with the failure that writing it
  // in place would have met, before anything is created.
  static FileReplacement begin(const std::string& target);

  FileReplacement(FileReplacement&& other) noexcept;
  FileReplacement& operator=(FileReplacement&&) = delete;
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;
  // Without commit(), removes the temporary file: the target stays as it was.
  ~FileReplacement();

  void writeAll(const char* data, std::size_t size);
  // Puts the new content in the target's place; every failure throws, and
  // leaves the target as it was unless it is written in place.
  void commit();

  bool inPlace() const { return m_temporary.empty(); }

 private:
  FileReplacement(File file, std::string temporary, std::string target)
      : m_file(std::move(file)), m_temporary(std::move(temporary)), m_target(std::move(target)) {}

  File m_file;
  std::string m_temporary;  // empty: written in place
  std::string m_target;     // the file itself, links followed
  // How far the disk has been asked to take the new content already.
  std::size_t m_written = 0;
  std::size_t m_handedToDisk = 0;
};

// Removes the temporary file of a replacement under way, if any. Safe in a
// signal handler, for a program that ends on a signal in the middle of a save.
void removeUnfinishedReplacement() noexcept;

}  // namespace korvane
