#include "support/temp_files.h"

#include <fstream>
#include <random>
#include <sstream>

namespace korvane::testing {

TempDir::TempDir() {
  std::random_device random;
  do {
    m_path = std::filesystem::temp_directory_path() / ("korvane-test-" + std::to_string(random()));
  } while (!std::filesystem::create_directory(m_path));
}

TempDir::~TempDir() {
  std::error_code ignored;
  std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, std::filesystem::perm_options::add,
                               ignored);
  std::filesystem::remove_all(m_path, ignored);
}

std::string TempDir::write(const std::string& name, const std::string& bytes) const {
  auto full = m_path / name;
  std::ofstream out(full, std::ios::binary | std::ios::trunc);
  out << bytes;
  return full.string();
}

std::string readBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream bytes;
  // In one call: a character at a time takes seconds for files of megabytes in a debug build.
  if (in) bytes << in.rdbuf();
  return std::move(bytes).str();
}

std::string crlf(const std::vector<std::string>& lines) {
  std::string text;
  for (const auto& line : lines) text += line + "\r\n";
  return text;
}

}  // namespace korvane::testing
