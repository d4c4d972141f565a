// Placeholder until implemented.
#include "shell/directory_store.h"

namespace korvane {
std::string GetRegStr(Platform&, const std::string&, const std::string&, std::uint32_t) { return {}; }
void SetRegStr(Platform&, const std::string&, const std::string&, const std::string&, std::uint32_t) {}
void SaveDefaultDir(Platform&) {}
}  // namespace korvane
