#pragma once
// Temporary files for tests: a fresh directory per test, removed afterwards.

#include <filesystem>
#include <string>
#include <vector>

namespace korvane::testing {

class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::filesystem::path& path() const { return m_path; }
  // Writes the bytes to a file of that name in the directory; gives its full path.
  std::string write(const std::string& name, const std::string& bytes) const;
  std::string file(const std::string& name) const { return (m_path / name).string(); }

 private:
  std::filesystem::path m_path;
};

// The whole content of a file, or the empty string if it cannot be read.
std::string readBytes(const std::string& path);

// Joins lines, each followed by CR LF.
std::string crlf(const std::vector<std::string>& lines);

}  // namespace korvane::testing
