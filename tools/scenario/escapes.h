#pragma once
// The escapes of scenario scripts and transcripts. In a script's text
// argument "\n" is LF, "\r" CR, "\t" a tab, "\s" a blank and "\\" a
// backslash; a transcript writes LF, CR, tab and backslash the same way and
// leaves blanks as they are.

#include <string>
#include <string_view>

namespace korvane::scenario {

// Throws std::invalid_argument for a backslash that starts none of the escapes.
std::string unescapeText(std::string_view text);

std::string escapeText(std::string_view text);

}  // namespace korvane::scenario
