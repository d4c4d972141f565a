// Placeholder until implemented.
#include "text/delimited_text.h"

namespace korvane {
std::string GetElement(Platform&, std::string_view, std::string_view, std::int16_t) { return {}; }
std::string GetFileName(Platform&, std::string_view) { return {}; }
std::string Substitute(Platform&, std::string_view t, std::string_view, std::string_view) { return std::string(t); }
}  // namespace korvane
