#pragma once
// A file descriptor that closes itself, and the replacement of a file's whole
// content. Every operating-system error comes out as the RuntimeFailure the
// program reports, so the transfers and the lookup never look at errno
// themselves.

#include <cstddef>
#include <string>
#include <utility>

namespace korvane {

// Both opens take regular files only and never wait: a FIFO, a device, a
// socket or a directory is failure 75, "Path/File access error", and nothing
// of it is read, written or cut.
class PosixFile {
 public:
  static PosixFile openForReading(const std::string& path);
  // Creates the file, or cuts an existing one to nothing.
  static PosixFile openForWriting(const std::string& path);

  PosixFile(PosixFile&& other) noexcept;
  PosixFile& operator=(PosixFile&&) = delete;
  PosixFile(const PosixFile&) = delete;
  PosixFile& operator=(const PosixFile&) = delete;
  // Closes quietly: whoever needs to hear of a failed close calls close().
  ~PosixFile();

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
  explicit PosixFile(int descriptor) : m_descriptor(descriptor) {}
  static PosixFile openRegular(const std::string& path, int flags);

  int m_descriptor;
};

// A file's new content, written to a temporary file beside it and put in its
// place in one step, so that a save that fails or is killed half way leaves
// the old file whole. The temporary file is ".NAME.korvane-PID-N" in the
// target's folder; one left behind by a process that died is removed by the
// next save to the same target.
//
// A symbolic link has the file it points to replaced. The new file keeps the
// old one's permission bits (and owner, where the system lets it); a new file
// gets the usual ones under the umask. Where no temporary file can be made
// beside the target, or the target has more than one hard link, the target is
// cut and written in place, as PosixFile::openForWriting does.
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
  FileReplacement(PosixFile file, std::string temporary, std::string target)
      : m_file(std::move(file)), m_temporary(std::move(temporary)), m_target(std::move(target)) {}

  PosixFile m_file;
  std::string m_temporary;  // empty: written in place
  std::string m_target;     // the file itself, links followed
  // How far the disk has been asked to take the new content already.
  std::size_t m_written = 0;
  std::size_t m_handedToDisk = 0;
};

// A write past the process's file-size limit fails with EFBIG instead of
// ending the process by SIGXFSZ. Every open for writing makes sure of it.
void keepGoingPastFileSizeLimit();

// Removes the temporary file of a replacement under way, if any. Safe in a
// signal handler, for a program that ends on a signal in the middle of a save.
void removeUnfinishedReplacement() noexcept;

}  // namespace korvane
