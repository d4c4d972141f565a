#pragma once
// Paths are UTF-8 throughout the program. std::filesystem takes a plain
// string in the system's narrow encoding, which on Windows is an ANSI code
// page, so every crossing goes through these two.

#include <filesystem>
#include <string>
#include <string_view>

namespace korvane {

inline std::filesystem::path pathFromUtf8(std::string_view utf8) {
  return std::filesystem::path(
      std::u8string_view(reinterpret_cast<const char8_t*>(utf8.data()), utf8.size()));
}

inline std::string utf8FromPath(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

}  // namespace korvane
