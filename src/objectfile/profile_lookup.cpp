// Placeholder until implemented.
#include "objectfile/profile_lookup.h"

namespace korvane {
std::string GetINIString(Platform&, const std::string&, const std::string&, const std::string&) { return {}; }
void FlushProfileCache(const std::string&) {}
}  // namespace korvane
