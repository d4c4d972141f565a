#pragma once
// The one value that lasts between runs: the directory of the last file
// chosen, "DefaultDir" under "Software\<AppTitleName>" in the per-user store.

#include <cstdint>
#include <string>

namespace korvane {

class Platform;

inline constexpr std::uint32_t HKEY_CURRENT_USER = 0x80000001u;

// The remembered directory's place in the store: this value under
// defaultDirKeyPath of the application title.
inline constexpr const char* kDefaultDirValueName = "DefaultDir";
std::string defaultDirKeyPath(const std::string& appTitle);

// The stored text, or the empty string (missing, empty or unreadable).
std::string GetRegStr(Platform& platform, const std::string& keyPath, const std::string& valueName,
                      std::uint32_t hive);
// Writes the value; every failure is ignored.
void SetRegStr(Platform& platform, const std::string& valueName, const std::string& data,
               const std::string& keyPath, std::uint32_t hive);
// Stores DefaultDirPath.
void SaveDefaultDir(Platform& platform);

}  // namespace korvane
