#pragma once
// A file descriptor that closes itself. Every operating-system error comes out
// as the RuntimeFailure the program reports, so the transfers and the lookup
// never look at errno themselves.

#include <cstddef>
#include <string>

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
  // Some file systems only report a failed write here.
  void close();

 private:
  explicit PosixFile(int descriptor) : m_descriptor(descriptor) {}
  static PosixFile openRegular(const std::string& path, int flags);

  int m_descriptor;
};

}  // namespace korvane
