#pragma once
// The text functions. Positions count from 1, element indexes from 0, and
// comparisons are exact. Position arithmetic is 16-bit and guarded: beyond it
// is failure 6 "Overflow".

#include <cstdint>
#include <string>
#include <string_view>

namespace korvane {

class Platform;

// Element index of text split at delimiter; empty when there is none. On a
// failure it shows "GetElement: <number> - 0" through the platform's message
// box and gives the empty string.
std::string GetElement(Platform& platform, std::string_view text, std::string_view delimiter,
                       std::int16_t index);

// The last element of a backslash-separated path (the element before the
// first empty one). Shows nothing of its own on a failure.
std::string GetFileName(Platform& platform, std::string_view path);

// Every occurrence of search replaced, the search starting over after each
// replacement. On a failure it shows "Substitute: <number> - 0" and gives "".
std::string Substitute(Platform& platform, std::string_view text, std::string_view search,
                       std::string_view replacement);

}  // namespace korvane
